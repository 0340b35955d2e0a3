// Opens docs/gallery.html in headless Chromium over a local server, on a given export, and checks
// what model-viewer shows: the page loads with nothing fetched from elsewhere and no script error,
// the camera is the gallery picture's, the element is not blank, and the middle of every cell the
// .view.json lists holds part of a shape.
//   node tests/web/gallery_browser_test.mjs [--glb FILE] [--page HTML] [--out PNG]
// FILE defaults to docs/gallery.glb, with its FILE-without-extension.view.json beside it; HTML
// defaults to docs/gallery.html, with vendor/model-viewer.min.js beside it.
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { parseArgs } from 'node:util';
import { chromium } from 'playwright-core';
import { decodePng } from './png_pixels.mjs';
import { serveFolder } from './static_server.mjs';

const root = path.resolve(path.dirname(new URL(import.meta.url).pathname), '../..');
const background = [28, 31, 38];
// Chromium's own GL needs a GPU; SwiftShader through ANGLE gives WebGL on the CPU.
const chromiumArgs = ['--use-gl=angle', '--use-angle=swiftshader', '--enable-unsafe-swiftshader'];
const blankShare = 0.03;
const cellMiddle = 0.4;
const cellMinimumPixels = 20;
const timeoutMs = 120000;

function options() {
  const { values } = parseArgs({
    options: {
      glb: { type: 'string', default: path.join(root, 'docs/gallery.glb') },
      page: { type: 'string', default: path.join(root, 'docs/gallery.html') },
      out: { type: 'string' },
    },
  });
  return values;
}

// The folder the server shows: the page, the vendored script, the model and its view.
function stageSite(page, glb) {
  const site = fs.mkdtempSync(path.join(os.tmpdir(), 'lumagrid-web-'));
  fs.mkdirSync(path.join(site, 'vendor'));
  const vendored = path.join(path.dirname(page), 'vendor/model-viewer.min.js');
  fs.copyFileSync(page, path.join(site, 'gallery.html'));
  fs.copyFileSync(vendored, path.join(site, 'vendor/model-viewer.min.js'));
  fs.copyFileSync(glb, path.join(site, 'gallery.glb'));
  fs.copyFileSync(glb.replace(/\.[^./]*$/, '.view.json'), path.join(site, 'gallery.view.json'));
  return site;
}

function isBackground(data, offset) {
  const distance = Math.abs(data[offset] - background[0]) +
                   Math.abs(data[offset + 1] - background[1]) +
                   Math.abs(data[offset + 2] - background[2]);
  return distance <= 24;
}

// Pixels of the rectangle (clipped to the image) that are not the background.
function countDrawn(image, rect) {
  const x0 = Math.max(0, Math.round(rect.x));
  const y0 = Math.max(0, Math.round(rect.y));
  const x1 = Math.min(image.width, Math.round(rect.x + rect.width));
  const y1 = Math.min(image.height, Math.round(rect.y + rect.height));
  let drawn = 0;
  for (let y = y0; y < y1; ++y) {
    for (let x = x0; x < x1; ++x) {
      if (!isBackground(image.data, (y * image.width + x) * image.channels)) {
        ++drawn;
      }
    }
  }
  return { drawn, total: Math.max(0, x1 - x0) * Math.max(0, y1 - y0) };
}

function middleOf(cell, share) {
  return {
    x: cell.x + (cell.width * (1 - share)) / 2,
    y: cell.y + (cell.height * (1 - share)) / 2,
    width: cell.width * share,
    height: cell.height * share,
  };
}

// Resolves once model-viewer has loaded the model, shows it, and has finished its transitions.
function waitForLoad(page) {
  return page.evaluate(async () => {
    const viewer = document.querySelector('model-viewer');
    await customElements.whenDefined('model-viewer');
    if (!viewer.loaded) {
      await new Promise((resolve, reject) => {
        viewer.addEventListener('load', resolve, { once: true });
        viewer.addEventListener('error', (event) => reject(new Error(event.detail.type)), {
          once: true,
        });
      });
    }
    const frame = () => new Promise((resolve) => requestAnimationFrame(resolve));
    while (!viewer.modelIsVisible) {
      await frame();
    }
    // The progress bar fades out a second after loading: wait for that and any other transition.
    await frame();
    while (viewer.shadowRoot.getAnimations().length > 0 || document.getAnimations().length > 0) {
      await frame();
    }
  });
}

function readCamera(page) {
  return page.evaluate(() => {
    const viewer = document.querySelector('model-viewer');
    const orbit = viewer.getCameraOrbit();
    const target = viewer.getCameraTarget();
    return {
      theta: (orbit.theta * 180) / Math.PI,
      phi: (orbit.phi * 180) / Math.PI,
      radius: orbit.radius,
      target: [target.x, target.y, target.z],
      fieldOfView: viewer.getFieldOfView(),
    };
  });
}

function cameraDifferences(camera, view) {
  const near = (a, b) => Math.abs(a - b) <= 1e-3 * Math.max(1, Math.abs(b));
  const wrong = [];
  const expect = (name, got, want) => {
    if (!near(got, want)) {
      wrong.push(`${name} ${got} (want ${want})`);
    }
  };
  expect('theta', camera.theta, 0);
  expect('phi', camera.phi, 90);
  expect('radius', camera.radius, view.distance);
  expect('field of view', camera.fieldOfView, view.fieldOfViewDegrees);
  view.target.forEach((want, i) => expect(`target[${i}]`, camera.target[i], want));
  return wrong;
}

// Takes element screenshots until two in a row are the same picture.
async function settledScreenshot(element) {
  let previous = await element.screenshot();
  for (let attempt = 0; attempt < 20; ++attempt) {
    await element.page().waitForTimeout(250);
    const current = await element.screenshot();
    if (current.equals(previous)) {
      return current;
    }
    previous = current;
  }
  console.log('the picture still changes after 20 screenshots; checking the last one');
  return previous;
}

async function check(browser, origin, view, out) {
  const failures = [];
  const page = await browser.newPage({
    viewport: { width: view.width + 64, height: view.height + 200 },
    deviceScaleFactor: 1,
  });
  page.on('pageerror', (error) => failures.push(`script error: ${error.message}`));
  page.on('console', (message) => {
    if (message.type() === 'error') {
      console.log(`console error: ${message.text()}`);
    }
  });
  // The page must work offline: anything asked of another host fails the test.
  await page.route('**/*', (route) => {
    const url = route.request().url();
    if (url.startsWith(origin + '/')) {
      return route.continue();
    }
    failures.push(`the page asked for ${url}`);
    return route.abort();
  });

  await page.goto(`${origin}/gallery.html`);
  const renderer = await page.evaluate(() => {
    const gl = document.createElement('canvas').getContext('webgl2');
    const info = gl && gl.getExtension('WEBGL_debug_renderer_info');
    return gl ? gl.getParameter(info ? info.UNMASKED_RENDERER_WEBGL : gl.RENDERER) : null;
  });
  console.log(`WebGL 2: ${renderer || 'not available'}`);
  if (!renderer) {
    return ['no WebGL 2 context'];
  }
  try {
    await waitForLoad(page);
  } catch (error) {
    return [...failures, `model-viewer did not load the model: ${error.message.split('\n')[0]}`];
  }

  const element = page.locator('model-viewer');
  const box = await element.boundingBox();
  if (Math.round(box.width) !== view.width || Math.round(box.height) !== view.height) {
    failures.push(`model-viewer is ${box.width}x${box.height}, not ${view.width}x${view.height}`);
  }
  // The page corrects the field of view once the model is in: wait for the camera to get there.
  let wrong = [];
  for (let attempt = 0; attempt < 40; ++attempt) {
    wrong = cameraDifferences(await readCamera(page), view);
    if (wrong.length === 0) {
      break;
    }
    await page.waitForTimeout(100);
  }
  console.log(`camera: ${wrong.length === 0 ? 'the picture\'s' : wrong.join(', ')}`);
  failures.push(...wrong.map((w) => `camera ${w}`));

  const png = await settledScreenshot(element);
  if (out) {
    fs.writeFileSync(out, png);
    console.log(`screenshot: ${out}`);
  }
  const image = decodePng(png);
  const whole = countDrawn(image, { x: 0, y: 0, width: image.width, height: image.height });
  const share = whole.drawn / whole.total;
  console.log(`not blank: ${(share * 100).toFixed(1)}% of the pixels are not the background` +
              ` (at least ${blankShare * 100}%)`);
  if (share < blankShare) {
    failures.push('the picture is blank');
  }
  for (const [index, cell] of view.cells.entries()) {
    const { drawn, total } = countDrawn(image, middleOf(cell, cellMiddle));
    const ok = drawn >= cellMinimumPixels;
    console.log(`cell ${String(index).padStart(2)} ${cell.label.padEnd(20)} ` +
                `${String(drawn).padStart(5)}/${total} middle pixels drawn  ${ok ? 'ok' : 'EMPTY'}`);
    if (!ok) {
      failures.push(`cell ${index} (${cell.label}) is empty in its middle`);
    }
  }
  return failures;
}

async function main() {
  const { glb, page, out } = options();
  // Waits inside the page have no limit of their own: a model that never loads must still fail.
  setTimeout(() => {
    console.log(`FAIL: no result after ${timeoutMs / 1000} s`);
    process.exit(1);
  }, timeoutMs).unref();
  const view = JSON.parse(fs.readFileSync(glb.replace(/\.[^./]*$/, '.view.json'), 'utf8'));
  const site = stageSite(page, glb);
  const server = await serveFolder(site);
  const browser = await chromium.launch({
    executablePath: '/usr/bin/chromium',
    headless: true,
    args: chromiumArgs,
    timeout: timeoutMs,
  });
  let failures;
  try {
    failures = await check(browser, server.origin, view, out);
  } finally {
    await browser.close();
    await server.close();
    fs.rmSync(site, { recursive: true, force: true });
  }
  for (const failure of failures) {
    console.log(`FAIL: ${failure}`);
  }
  const cells = view.cells.length;
  console.log(failures.length === 0 ? `gallery in the browser: ${cells} cells, all checks passed`
                                    : `gallery in the browser: ${failures.length} failures`);
  process.exit(failures.length === 0 ? 0 : 1);
}

await main();

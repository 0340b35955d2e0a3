// Decodes the 8-bit RGB or RGBA, non-interlaced PNGs that browsers write as screenshots, into
// plain pixels: { width, height, channels, data } with rows top to bottom.
import zlib from 'node:zlib';

const signature = Buffer.from([0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a]);
const channelsByColourType = { 2: 3, 6: 4 };

// The filter predictor for byte x of a row: a is left, b is up, c is up-left.
function paeth(a, b, c) {
  const p = a + b - c;
  const pa = Math.abs(p - a);
  const pb = Math.abs(p - b);
  const pc = Math.abs(p - c);
  if (pa <= pb && pa <= pc) {
    return a;
  }
  return pb <= pc ? b : c;
}

function unfilter(raw, width, height, channels) {
  const stride = width * channels;
  const data = Buffer.alloc(stride * height);
  for (let y = 0; y < height; ++y) {
    const filter = raw[y * (stride + 1)];
    const source = y * (stride + 1) + 1;
    const row = y * stride;
    for (let x = 0; x < stride; ++x) {
      const a = x >= channels ? data[row + x - channels] : 0;
      const b = y > 0 ? data[row - stride + x] : 0;
      const c = x >= channels && y > 0 ? data[row - stride + x - channels] : 0;
      const predictors = [0, a, b, (a + b) >> 1, paeth(a, b, c)];
      if (filter > 4) {
        throw new Error(`row ${y} has unknown filter ${filter}`);
      }
      data[row + x] = (raw[source + x] + predictors[filter]) & 0xff;
    }
  }
  return data;
}

export function decodePng(bytes) {
  if (!bytes.subarray(0, 8).equals(signature)) {
    throw new Error('not a PNG');
  }
  let header = null;
  const compressed = [];
  for (let at = 8; at < bytes.length;) {
    const length = bytes.readUInt32BE(at);
    const type = bytes.toString('latin1', at + 4, at + 8);
    const body = bytes.subarray(at + 8, at + 8 + length);
    if (type === 'IHDR') {
      header = {
        width: body.readUInt32BE(0),
        height: body.readUInt32BE(4),
        bitDepth: body[8],
        colourType: body[9],
        interlace: body[12],
      };
    } else if (type === 'IDAT') {
      compressed.push(body);
    }
    at += 12 + length;
  }
  const channels = header && channelsByColourType[header.colourType];
  if (!channels || header.bitDepth !== 8 || header.interlace !== 0) {
    throw new Error('only 8-bit RGB or RGBA, non-interlaced PNGs are read');
  }
  const raw = zlib.inflateSync(Buffer.concat(compressed));
  const { width, height } = header;
  return { width, height, channels, data: unfilter(raw, width, height, channels) };
}

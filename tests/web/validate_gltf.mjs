// Runs the Khronos glTF validator on each file and fails unless it reports no error and no
// warning. Prints the info and hint counts (with their codes); prints every message on failure.
//   node tests/web/validate_gltf.mjs FILE...
import fs from 'node:fs';
import path from 'node:path';
import validator from 'gltf-validator';

// Only a .gltf with a separate .bin asks for this; ours embed their buffer.
function readBeside(file) {
  return (uri) => fs.promises.readFile(path.resolve(path.dirname(file), decodeURIComponent(uri)));
}

function countsByCode(messages) {
  const counts = new Map();
  for (const m of messages) {
    counts.set(m.code, (counts.get(m.code) || 0) + 1);
  }
  return [...counts].map(([code, n]) => `${code} x${n}`).join(', ');
}

const severityNames = ['error', 'warning', 'info', 'hint'];

async function validate(file) {
  const report = await validator.validateBytes(new Uint8Array(fs.readFileSync(file)), {
    uri: path.basename(file),
    maxIssues: 0,
    writeTimestamp: false,
    externalResourceFunction: readBeside(file),
  });
  const { numErrors, numWarnings, numInfos, numHints, messages } = report.issues;
  console.log(`${file}: ${numErrors} errors, ${numWarnings} warnings, ${numInfos} infos, ` +
              `${numHints} hints`);
  const minor = messages.filter((m) => m.severity >= 2);
  if (minor.length > 0) {
    console.log(`  infos and hints: ${countsByCode(minor)}`);
  }
  if (numErrors === 0 && numWarnings === 0) {
    return true;
  }
  for (const m of messages.filter((m) => m.severity < 2)) {
    console.log(`  ${severityNames[m.severity]} ${m.code} at ${m.pointer || m.offset}: ${m.message}`);
  }
  return false;
}

const files = process.argv.slice(2);
if (files.length === 0) {
  console.error('usage: node tests/web/validate_gltf.mjs FILE...');
  process.exit(2);
}
console.log(`glTF validator ${validator.version()}`);
let ok = true;
for (const file of files) {
  try {
    ok = (await validate(file)) && ok;
  } catch (error) {
    console.log(`${file}: the validator could not read it: ${error}`);
    ok = false;
  }
}
process.exit(ok ? 0 : 1);

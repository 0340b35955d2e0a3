// Reads a .glb or a .gltf with its buffer embedded, as the export writes them: the JSON, and the
// one buffer's bytes.
import fs from 'node:fs';

const glbMagic = 0x46546c67;
const jsonChunk = 0x4e4f534a;
const binChunk = 0x004e4942;

export function readGltf(file) {
  const bytes = fs.readFileSync(file);
  if (bytes.length < 20 || bytes.readUInt32LE(0) !== glbMagic) {
    const json = JSON.parse(bytes.toString('utf8'));
    const uri = json.buffers?.[0]?.uri ?? '';
    const comma = uri.indexOf(',');
    return { json, bin: Buffer.from(comma < 0 ? '' : uri.slice(comma + 1), 'base64') };
  }
  // A .glb: a 12-byte header, then chunks of (length, type, data), JSON first.
  let offset = 12;
  let json = null;
  let bin = Buffer.alloc(0);
  while (offset + 8 <= bytes.length) {
    const length = bytes.readUInt32LE(offset);
    const type = bytes.readUInt32LE(offset + 4);
    const data = bytes.subarray(offset + 8, offset + 8 + length);
    if (type === jsonChunk) {
      json = JSON.parse(data.toString('utf8'));
    } else if (type === binChunk) {
      bin = data;
    }
    offset += 8 + length;
  }
  if (json === null) {
    throw new Error(`${file}: no JSON chunk`);
  }
  return { json, bin };
}

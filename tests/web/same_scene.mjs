// Exits 0 when two glTF files hold the same scene: the same nodes, each with the same name,
// matrix, primitives, materials and vertex and index data, in whatever order. A scene draws its
// shapes in the order of their addresses, which differ from run to run, and the export keeps
// that order, so two exports of one scene may list their nodes in different orders.
//   node tests/web/same_scene.mjs A B
import { readGltf } from './gltf_file.mjs';

function accessorBytes(gltf, index) {
  const accessor = gltf.json.accessors[index];
  const view = gltf.json.bufferViews[accessor.bufferView];
  const start = (view.byteOffset ?? 0) + (accessor.byteOffset ?? 0);
  return gltf.bin.subarray(start, start + view.byteLength).toString('hex');
}

// Everything a node shows, as one string, with indices into the file's arrays replaced by what
// they point to.
function describedNodes(file) {
  const gltf = readGltf(file);
  return gltf.json.nodes.map((node) => {
    const mesh = gltf.json.meshes[node.mesh];
    const primitives = mesh.primitives.map((p) => ({
      mode: p.mode,
      material: gltf.json.materials[p.material],
      attributes: Object.keys(p.attributes).sort().map((name) =>
        [name, gltf.json.accessors[p.attributes[name]].min, gltf.json.accessors[p.attributes[name]].max,
         accessorBytes(gltf, p.attributes[name])]),
      indices: [gltf.json.accessors[p.indices].componentType, accessorBytes(gltf, p.indices)],
    }));
    return JSON.stringify({ name: node.name, matrix: node.matrix ?? null, primitives });
  }).sort();
}

const [a, b] = process.argv.slice(2);
if (!a || !b) {
  console.error('usage: node tests/web/same_scene.mjs A B');
  process.exit(2);
}
const left = describedNodes(a);
const right = describedNodes(b);
const same = left.length === right.length && left.every((node, i) => node === right[i]);
if (!same) {
  const missing = left.filter((node) => !right.includes(node)).length;
  console.error(`same_scene: ${a} and ${b} differ (${left.length} and ${right.length} nodes, ` +
                `${missing} of the first not in the second)`);
  process.exit(1);
}
console.log(`same_scene: ${a} and ${b} hold the same ${left.length} nodes`);

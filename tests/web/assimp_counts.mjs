// Prints the node and mesh counts that `assimp info FILE --raw` should report for a .glb or .gltf, worked out
// from the file's own JSON, as "NODES MESHES".
//   node tests/web/assimp_counts.mjs FILE
//
// How assimp's glTF importer counts (checked on small files by hand):
// - one aiMesh per glTF primitive of each glTF mesh that a node uses, once however many nodes
//   use it (a mesh no node uses is left out);
// - one aiNode per node reached from the default scene, a node's primitives staying on it;
// - one extra root node named ROOT when the scene has more than one root node; a single root
//   node becomes the root itself.
import { readGltf } from './gltf_file.mjs';

// The nodes reached from the roots, and the meshes they use.
function walk(gltf, roots) {
  const reached = { nodes: 0, meshes: new Set() };
  const visit = (index) => {
    const node = gltf.nodes[index];
    reached.nodes += 1;
    if (node.mesh !== undefined) {
      reached.meshes.add(node.mesh);
    }
    (node.children || []).forEach(visit);
  };
  roots.forEach(visit);
  return reached;
}

const file = process.argv[2];
if (!file) {
  console.error('usage: node tests/web/assimp_counts.mjs FILE');
  process.exit(2);
}
const gltf = readGltf(file).json;
const scene = gltf.scenes[gltf.scene ?? 0];
const roots = scene.nodes || [];
const reached = walk(gltf, roots);
const nodes = reached.nodes + (roots.length > 1 ? 1 : 0);
let meshes = 0;
for (const index of reached.meshes) {
  meshes += gltf.meshes[index].primitives.length;
}
console.log(`${nodes} ${meshes}`);

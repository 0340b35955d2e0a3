#include <epoxy/gl.h>

#include <lumagrid/CoreProfileRenderer.h>

#include <lumagrid/Mesh.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "coreprofile/frame_shapes.h"
#include "coreprofile/gl_context.h"
#include "coreprofile/gl_state.h"
#include "coreprofile/gpu_mesh.h"
#include "coreprofile/shader_program.h"
#include "coreprofile/shader_source.h"

namespace lumagrid {
namespace {

using detail::FrameShape;
using detail::GpuMesh;
using detail::Instance;

// A mesh no shape has drawn with for this many frames is let go.
constexpr std::uint64_t kFramesKept = 60;

// Instances drawn with one call: a run of the frame's instance buffer.
struct Batch {
  const GpuMesh* mesh;
  std::size_t first;
  GLsizei count;
  bool cullBackFaces;
};

std::string VersionText(int version) {
  return std::to_string(version / 10) + "." + std::to_string(version % 10);
}

// Points the bound vertex array's per-instance attributes at instances [first, ...).
void PointInstances(std::size_t first) {
  const auto stride = static_cast<GLsizei>(sizeof(Instance));
  const std::size_t base = first * sizeof(Instance);
  auto at = [base](std::size_t offset) { return reinterpret_cast<const void*>(base + offset); };
  for (GLuint c = 0; c < 4; ++c) {
    glEnableVertexAttribArray(detail::kModelView + c);
    glVertexAttribPointer(detail::kModelView + c, 4, GL_FLOAT, GL_FALSE, stride,
                          at(offsetof(Instance, modelView) + 4 * sizeof(float) * c));
    glVertexAttribDivisor(detail::kModelView + c, 1);
  }
  for (GLuint c = 0; c < 3; ++c) {
    glEnableVertexAttribArray(detail::kNormalMatrix + c);
    glVertexAttribPointer(detail::kNormalMatrix + c, 3, GL_FLOAT, GL_FALSE, stride,
                          at(offsetof(Instance, normalMatrix) + 3 * sizeof(float) * c));
    glVertexAttribDivisor(detail::kNormalMatrix + c, 1);
  }
  for (GLuint c = 0; c < 4; ++c) {
    glEnableVertexAttribArray(detail::kClip + c);
    glVertexAttribPointer(detail::kClip + c, 4, GL_FLOAT, GL_FALSE, stride,
                          at(offsetof(Instance, clip) + 4 * sizeof(float) * c));
    glVertexAttribDivisor(detail::kClip + c, 1);
  }
  glEnableVertexAttribArray(detail::kColour);
  glVertexAttribPointer(detail::kColour, 4, GL_FLOAT, GL_FALSE, stride,
                        at(offsetof(Instance, colour)));
  glVertexAttribDivisor(detail::kColour, 1);
}

}  // namespace

// The program for one set of lights, which are directional and which are not, and where its
// uniforms are.
struct LitProgram {
  explicit LitProgram(const std::vector<bool>& directional)
      : program(detail::VertexShader(directional).c_str(), detail::kFragmentShader),
        lit(program.uniform("lit")),
        lightPosition(program.uniform("lightPosition")),
        lightDiffuse(program.uniform("lightDiffuse")),
        ambient(program.uniform("ambient")) {}

  detail::ShaderProgram program;
  GLint lit;
  GLint lightPosition;
  GLint lightDiffuse;
  GLint ambient;
};

struct CoreProfileRenderer::State {
  // Built the first time a view has their set of lights.
  std::map<std::vector<bool>, std::unique_ptr<LitProgram>> programs;
  LitProgram* program = nullptr;
  GLuint instanceBuffer = 0;
  std::unordered_map<std::string, std::unique_ptr<GpuMesh>> meshes;
  std::uint64_t frame = 0;
  std::string error;

  bool Ready(const View& view);
  const GpuMesh& MeshFor(FrameShape& shape);
  void SetView(const View& view);
  void DrawBatch(const Batch& batch);
  void DrawRun(const Batch& batch);
  void LetGoOfUnusedMeshes();
};

// Checks the context and the view, and builds the program at the first draw.
bool CoreProfileRenderer::State::Ready(const View& view) {
  const int version = detail::CurrentGLVersion();
  if (version == 0) {
    error = detail::HasCurrentContext() ? "the current context is not desktop OpenGL"
                                        : "no OpenGL context is current";
    return false;
  }
  if (version < 33) {
    error = "OpenGL 3.3 is needed; the current context has " + VersionText(version);
    return false;
  }
  if (view.lights.size() > static_cast<std::size_t>(detail::kMaxLights)) {
    error = "the view has " + std::to_string(view.lights.size()) + " lights; at most " +
            std::to_string(detail::kMaxLights) + " are drawn";
    return false;
  }
  std::vector<bool> directional;
  for (const Light& light : view.lights) {
    directional.push_back(light.position[3] == 0.0f);
  }
  std::unique_ptr<LitProgram>& entry = programs[directional];
  if (!entry) {
    entry = std::make_unique<LitProgram>(directional);
  }
  program = entry.get();
  if (!program->program.ok()) {
    error = program->program.error();
    return false;
  }
  if (instanceBuffer == 0) {
    glGenBuffers(1, &instanceBuffer);
  }
  return true;
}

// The shape's mesh in GL, built the first time its key is met.
const GpuMesh& CoreProfileRenderer::State::MeshFor(FrameShape& shape) {
  std::unique_ptr<GpuMesh>& mesh = meshes[shape.meshKey];
  if (!mesh) {
    mesh = std::make_unique<GpuMesh>(MeshOf(*shape.shape));
  }
  mesh->lastUsed = frame;
  return *mesh;
}

void CoreProfileRenderer::State::SetView(const View& view) {
  glUseProgram(program->program.id());
  std::vector<float> positions;
  std::vector<float> diffuse;
  for (const Light& light : view.lights) {
    const float* p = light.position;
    const float length = std::sqrt(p[0] * p[0] + p[1] * p[1] + p[2] * p[2]);
    const bool directional = p[3] == 0.0f && length > 0.0f;
    for (int i = 0; i < 4; ++i) {
      positions.push_back(directional && i < 3 ? p[i] / length : p[i]);
    }
    diffuse.insert(diffuse.end(), light.diffuse, light.diffuse + 4);
  }
  const auto count = static_cast<GLsizei>(view.lights.size());
  if (count > 0) {
    glUniform4fv(program->lightPosition, count, positions.data());
    glUniform4fv(program->lightDiffuse, count, diffuse.data());
  }
  glUniform4fv(program->ambient, 1, view.ambient);
}

void CoreProfileRenderer::State::DrawBatch(const Batch& whole) {
  // The driver holds every primitive it has been given until it has drawn them: handed over a
  // run of about kRunPrimitives at a time, with a flush after each, it holds a run's worth, and
  // draws one run while it is given the next.
  constexpr GLsizei kRunPrimitives = 1 << 17;
  const GLsizei perInstance =
      std::max<GLsizei>(1, whole.mesh->triangleIndices() / 3 + whole.mesh->lineIndices() / 2);
  const GLsizei run = std::max<GLsizei>(1, kRunPrimitives / perInstance);
  for (GLsizei done = 0; done < whole.count; done += run) {
    Batch batch = whole;
    batch.first += static_cast<std::size_t>(done);
    batch.count = std::min(run, whole.count - done);
    DrawRun(batch);
    if (done + run < whole.count) {
      glFlush();
    }
  }
}

void CoreProfileRenderer::State::DrawRun(const Batch& batch) {
  glBindVertexArray(batch.mesh->vertexArray());
  PointInstances(batch.first);
  if (batch.mesh->triangleIndices() > 0) {
    glUniform1i(program->lit, 1);
    glDrawElementsInstanced(GL_TRIANGLES, batch.mesh->triangleIndices(), GL_UNSIGNED_INT, nullptr,
                            batch.count);
  }
  if (batch.mesh->lineIndices() > 0) {
    glUniform1i(program->lit, 0);
    const auto offset = static_cast<std::size_t>(batch.mesh->triangleIndices()) * 4;
    glDrawElementsInstanced(GL_LINES, batch.mesh->lineIndices(), GL_UNSIGNED_INT,
                            reinterpret_cast<const void*>(offset), batch.count);
  }
}

void CoreProfileRenderer::State::LetGoOfUnusedMeshes() {
  for (auto it = meshes.begin(); it != meshes.end();) {
    if (it->second->lastUsed + kFramesKept < frame) {
      it = meshes.erase(it);
    } else {
      ++it;
    }
  }
}

CoreProfileRenderer::CoreProfileRenderer() : state_(std::make_unique<State>()) {}

CoreProfileRenderer::~CoreProfileRenderer() {
  state_->meshes.clear();
  state_->programs.clear();
  if (state_->instanceBuffer != 0) {
    glDeleteBuffers(1, &state_->instanceBuffer);
  }
}

bool CoreProfileRenderer::Draw(CGLScene& scene, const View& view) {
  State& s = *state_;
  s.error.clear();
  if (!s.Ready(view)) {
    return false;
  }
  ++s.frame;
  std::vector<FrameShape> shapes = detail::CollectFrameShapes(scene, view);

  // Opaque shapes grouped by mesh, in order of first appearance; translucent ones back to front.
  std::vector<Instance> instances;
  instances.reserve(shapes.size());
  std::vector<Batch> opaque;
  // Back faces of a closed mesh are hidden behind its front ones, unless a mirroring model-view
  // turns its winding round: culled, they cost llvmpipe nothing past the triangle's setup.
  using Group = std::pair<const GpuMesh*, bool>;
  std::map<Group, std::vector<const Instance*>> byMesh;
  std::vector<Group> order;
  struct Translucent {
    float depth;
    const GpuMesh* mesh;
    const Instance* instance;
  };
  std::vector<Translucent> translucent;
  for (FrameShape& shape : shapes) {
    const GpuMesh& mesh = s.MeshFor(shape);
    if (mesh.empty()) {
      continue;
    }
    if (shape.translucent) {
      translucent.push_back(
          {detail::EyeDepth(shape.instance, mesh.centre().data()), &mesh, &shape.instance});
      continue;
    }
    const Group key{&mesh, mesh.closed() && !shape.mirrored};
    std::vector<const Instance*>& group = byMesh[key];
    if (group.empty()) {
      order.push_back(key);
    }
    group.push_back(&shape.instance);
  }
  for (const Group& key : order) {
    const std::vector<const Instance*>& group = byMesh[key];
    opaque.push_back({key.first, instances.size(), static_cast<GLsizei>(group.size()), key.second});
    for (const Instance* instance : group) {
      instances.push_back(*instance);
    }
  }
  std::stable_sort(translucent.begin(), translucent.end(),
                   [](const Translucent& a, const Translucent& b) { return a.depth < b.depth; });
  const std::size_t firstTranslucent = instances.size();
  for (const Translucent& t : translucent) {
    instances.push_back(*t.instance);
  }

  {
    detail::GLStateGuard guard;
    s.SetView(view);
    glBindBuffer(GL_ARRAY_BUFFER, s.instanceBuffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(instances.size() * sizeof(Instance)),
                 instances.data(), GL_STREAM_DRAW);
    glEnable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glCullFace(GL_BACK);
    glDepthMask(GL_TRUE);
    for (const Batch& batch : opaque) {
      if (batch.cullBackFaces) {
        glEnable(GL_CULL_FACE);
      } else {
        glDisable(GL_CULL_FACE);
      }
      s.DrawBatch(batch);
    }
    // Translucent shapes blend over everything opaque without hiding one another, and show
    // only their front faces, so a closed shape does not blend its own far side over itself.
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    for (std::size_t i = 0; i < translucent.size(); ++i) {
      s.DrawBatch({translucent[i].mesh, firstTranslucent + i, 1, true});
    }
  }
  s.LetGoOfUnusedMeshes();
  const GLenum glError = glGetError();
  if (glError != GL_NO_ERROR) {
    s.error = "OpenGL reported error 0x" + [glError] {
      char text[16];
      std::snprintf(text, sizeof text, "%04X", glError);
      return std::string(text);
    }() + " while drawing";
    return false;
  }
  return true;
}

std::string CoreProfileRenderer::LastError() const {
  return state_->error;
}

std::size_t CoreProfileRenderer::GLObjectCount() const {
  std::size_t count = 0;
  for (const auto& entry : state_->programs) {
    count += entry.second->program.ok() ? 1 : 0;
  }
  count += state_->instanceBuffer != 0 ? 1 : 0;
  for (const auto& entry : state_->meshes) {
    count += entry.second->glObjects();
  }
  return count;
}

}  // namespace lumagrid

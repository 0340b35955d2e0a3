// Helpers shared by the entry-point files: recording arguments and reading caller arrays.
// Internal.
#pragma once

#include <GL/gl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "glrecorder/Emulator.h"

namespace glrecorder::detail {

template <class... A>
std::vector<Arg> args(const A&... values) {
  return {toArg(values)...};
}

inline Arg doublesOrNull(const double* values, std::size_t n, int width = 0) {
  return values != nullptr ? Arg(doubles(values, n, width)) : Arg(Null{});
}

inline Arg floatsOrNull(const float* values, std::size_t n, int width = 0) {
  return values != nullptr ? Arg(floats(values, n, width)) : Arg(Null{});
}

// The 16 values at m, or nothing for a null pointer.
template <class T>
std::optional<Matrix> matrixFrom(const T* m) {
  if (m == nullptr) {
    return std::nullopt;
  }
  Matrix out;
  std::copy(m, m + 16, out.begin());
  return out;
}

// The three (or four) values at v, for the vector forms; nothing for a null pointer.
template <class T>
std::optional<std::array<double, 4>> valuesAt(const T* v, std::size_t n) {
  if (v == nullptr) {
    return std::nullopt;
  }
  std::array<double, 4> out{0.0, 0.0, 0.0, 1.0};
  std::copy(v, v + n, out.begin());
  return out;
}

inline void setColor(Emulator& e, const std::optional<std::array<double, 4>>& c) {
  if (c) {
    e.color = *c;
  }
}

// glGetIntegerv, glGetFloatv and glGetDoublev: one query, converted to the caller's type.
template <class T>
void get(const char* name, GLenum pname, T* params) {
  const std::vector<double> values = emulator().query(pname);
  Array<double> written;
  for (std::size_t i = 0; i < values.size(); ++i) {
    double v = values[i];
    if constexpr (std::is_integral_v<T>) {
      // Rounded and clamped, so that no value makes the conversion undefined.
      v = std::isnan(v) ? 0.0 : std::nearbyint(std::clamp(v, -2147483648.0, 2147483647.0));
    }
    if (params != nullptr) {
      params[i] = static_cast<T>(v);
    }
    written.values.push_back(v);
  }
  emulator().immediate(name, args(en(pname)), Arg(written));
}

}  // namespace glrecorder::detail

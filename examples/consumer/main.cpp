// Links against an installed Lumagrid and uses it without a GL context.
#include <lumagrid/lumagrid.h>

#include <iostream>

int main() {
  mat4x4 m;
  m.loadRotateZ(1.5707963267948966);
  m.translate(1.0, 0.0, 0.0);
  vec3d p(1.0, 0.0, 0.0);
  m.transform(p);
  std::cout << p << '\n';
  return (p == vec3d(0.0, 2.0, 0.0)) ? 0 : 1;
}

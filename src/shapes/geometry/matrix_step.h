#ifndef LUMAGRID_SRC_SHAPES_GEOMETRY_MATRIX_STEP_H
#define LUMAGRID_SRC_SHAPES_GEOMETRY_MATRIX_STEP_H

namespace lumagrid::detail {

// One matrix call of a list, as data: glTranslated(x, y, z), or glRotated(degrees, x, y, z).
struct MatrixStep {
  enum Kind { Translate, Rotate } kind;
  double degrees;
  double x;
  double y;
  double z;
};

inline MatrixStep TranslateStep(double x, double y, double z) {
  return {MatrixStep::Translate, 0.0, x, y, z};
}

inline MatrixStep RotateStep(double degrees, double x, double y, double z) {
  return {MatrixStep::Rotate, degrees, x, y, z};
}

}  // namespace lumagrid::detail

#endif

#ifndef LUMAGRID_SRC_SHAPES_PATH_QUALITY_H
#define LUMAGRID_SRC_SHAPES_PATH_QUALITY_H

namespace lumagrid::detail {

// A belt's and a spring's SetQuality: a quality from 10 to 50 is stored,
// any other leaves the stored one.
inline void StoreQuality(int& quality, unsigned int q) {
  if (q >= 10 && q <= 50) {
    quality = static_cast<int>(q);
  }
}

}  // namespace lumagrid::detail

#endif

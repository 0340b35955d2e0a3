#ifndef LUMAGRID_TESTS_SUPPORT_RECORDED_SHORTHANDS_H
#define LUMAGRID_TESTS_SUPPORT_RECORDED_SHORTHANDS_H

#include <lumagrid/testing/GLRecorder.h>

#include <limits>
#include <string>
#include <vector>

// The names every call-sequence test of a shape writes its expectations with.

using glrecorder::en;
using glrecorder::line;
using glrecorder::recorder;

using Lines = std::vector<std::string>;

inline const double kNaN = std::numeric_limits<double>::quiet_NaN();

#endif

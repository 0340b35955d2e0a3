#include <GL/gl.h>
#include <GL/glu.h>
#include <GL/gle.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>

#include "recorded/RecorderFixture.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const glrecorder::Matrix kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

using GLRecorder = RecorderFixture;

// ------------------------------------------------------------------ formatting

// This program links the library's objects and the double, no libGL: nothing is imported.
TEST(GLRecorderUnrecorded, ProgramWithoutLibGLImportsNoEntryPoint) {
  EXPECT_EQ(glrecorder::unrecordedEntryPoints(), std::vector<std::string>{});
}

TEST(GLRecorderFormat, DoublesPrintInShortestRoundTripForm) {
  EXPECT_EQ(glrecorder::format(0.2 * 0.4), "0.08000000000000002");
  EXPECT_EQ(glrecorder::format(0.08), "0.08");
  EXPECT_EQ(glrecorder::format(1.0), "1");
  EXPECT_EQ(glrecorder::format(-0.0), "-0");
  EXPECT_EQ(glrecorder::format(1e-20), "1e-20");
  EXPECT_EQ(glrecorder::format(std::numeric_limits<double>::infinity()), "inf");
}

TEST(GLRecorderFormat, FloatsPrintInShortestFloatForm) {
  EXPECT_EQ(glrecorder::format(0.8f), "0.8");
  EXPECT_EQ(glrecorder::format(static_cast<double>(0.8f)), "0.800000011920929");
}

TEST(GLRecorderFormat, EnumsPrintSymbolically) {
  EXPECT_EQ(glrecorder::enumName(GL_COMPILE), "GL_COMPILE");
  EXPECT_EQ(glrecorder::enumName(GL_AMBIENT_AND_DIFFUSE), "GL_AMBIENT_AND_DIFFUSE");
  EXPECT_EQ(glrecorder::enumName(GLU_INSIDE), "GLU_INSIDE");
  EXPECT_EQ(glrecorder::enumName(GL_LINE_STRIP), "GL_LINE_STRIP");
  EXPECT_EQ(glrecorder::enumName(0x1234), "0x1234");
  EXPECT_EQ(glrecorder::errorName(GL_NO_ERROR), "GL_NO_ERROR");
  EXPECT_EQ(glrecorder::errorName(GL_STACK_UNDERFLOW), "GL_STACK_UNDERFLOW");
}

TEST(GLRecorderFormat, PrimitiveAndPolygonModesPrintSymbolically) {
  EXPECT_EQ(glrecorder::enumName(GL_LINES), "GL_LINES");
  EXPECT_EQ(glrecorder::enumName(GL_LINE_STRIP), "GL_LINE_STRIP");
  EXPECT_EQ(glrecorder::enumName(GL_TRIANGLE_STRIP), "GL_TRIANGLE_STRIP");
  EXPECT_EQ(glrecorder::enumName(GL_QUAD_STRIP), "GL_QUAD_STRIP");
  EXPECT_EQ(glrecorder::enumName(GL_POLYGON), "GL_POLYGON");
  EXPECT_EQ(glrecorder::enumName(GL_POINT), "GL_POINT");
  EXPECT_EQ(glrecorder::enumName(GL_LINE), "GL_LINE");
  EXPECT_EQ(glrecorder::enumName(GL_FILL), "GL_FILL");
  EXPECT_EQ(glrecorder::enumName(GL_POLYGON_MODE), "GL_POLYGON_MODE");
}

TEST(GLRecorderFormat, WithGleAppendsJoinStyleAndSides) {
  EXPECT_EQ(glrecorder::withGle("gleToroid(0.1, 1, 0, 0, 0, NULL, NULL, 0, 360)", 530, 20),
            "gleToroid(0.1, 1, 0, 0, 0, NULL, NULL, 0, 360) [join=530 sides=20]");
}

TEST(GLRecorderFormat, ArraysPrintFlatOrGrouped) {
  const double values[] = {1, 2.5, 3, 4, 5, 6};
  EXPECT_EQ(glrecorder::format(glrecorder::doubles(values, 6)), "[1, 2.5, 3, 4, 5, 6]");
  EXPECT_EQ(glrecorder::format(glrecorder::doubles(values, 6, 3)), "[[1, 2.5, 3], [4, 5, 6]]");
  EXPECT_EQ(glrecorder::format(glrecorder::points3({{0, 0, 1}, {0.5, 0, 2}})),
            "[[0, 0, 1], [0.5, 0, 2]]");
  const float colours[] = {0.5f, 0.25f, 1.0f};
  EXPECT_EQ(glrecorder::format(glrecorder::floats(colours, 3)), "[0.5, 0.25, 1]");
}

TEST(GLRecorderFormat, LineBuildsExpectedLinesFromComputedValues) {
  EXPECT_EQ(glrecorder::line("glNewList", 1, glrecorder::en(GL_COMPILE)),
            "glNewList(1, GL_COMPILE)");
  EXPECT_EQ(glrecorder::line("gleToroid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0),
            "gleToroid(0.1, 1, 0, 0, 0, NULL, NULL, 0, 360)");
  EXPECT_EQ(glrecorder::line("glVertex3f", 0.0f, 0.0f, static_cast<float>(1.0 * 0.8)),
            "glVertex3f(0, 0, 0.8)");
  EXPECT_EQ(glrecorder::line("gluDisk", "quad7", 0.0, 0.2, 128, 1),
            "gluDisk(quad7, 0, 0.2, 128, 1)");
  EXPECT_EQ(glrecorder::line("glEnd"), "glEnd()");
}

TEST(GLRecorderFormat, IntegersOfEveryWidthPrintAlike) {
  EXPECT_EQ(glrecorder::line("f", 5, 5u, 5L, static_cast<GLsizei>(5), static_cast<GLuint>(5)),
            "f(5, 5, 5, 5, 5)");
}

// ------------------------------------------------------------------ recording

TEST_F(GLRecorder, EveryCallIsRecordedInOrderWithItsArguments) {
  glPushMatrix();
  const GLdouble m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.5, 0, 0, 1};
  glMultMatrixd(m);
  const GLfloat grey[] = {0.5f, 0.5f, 0.5f, 1.0f};
  glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, grey);
  glBegin(GL_LINES);
  glVertex3f(0.0f, 0.0f, 0.0f);
  glVertex3d(0.0, 0.0, 0.1 + 0.2);
  glEnd();
  glPopMatrix();

  EXPECT_THAT(rec().log(), glrecorder::LinesEq({
                               "glPushMatrix()",
                               "glMultMatrixd([1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.5, 0, 0, 1])",
                               "glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, [0.5, 0.5, 0.5, 1])",
                               "glBegin(GL_LINES)",
                               "glVertex3f(0, 0, 0)",
                               "glVertex3d(0, 0, 0.30000000000000004)",
                               "glEnd()",
                               "glPopMatrix()",
                           }));
}

TEST_F(GLRecorder, RawCallsCarryTypedArguments) {
  glRotated(90.0, 0.0, 0.0, 1.0);
  glScalef(2.0f, 2.0f, 2.0f);
  ASSERT_EQ(rec().calls().size(), 2u);
  const glrecorder::Call& rotate = rec().calls()[0];
  EXPECT_EQ(rotate.name, "glRotated");
  ASSERT_EQ(rotate.args.size(), 4u);
  EXPECT_EQ(std::get<double>(rotate.args[0]), 90.0);
  EXPECT_TRUE(std::holds_alternative<float>(rec().calls()[1].args[0]));
  EXPECT_EQ(rotate, rotate);
  EXPECT_NE(rotate, rec().calls()[1]);
}

TEST_F(GLRecorder, EveryListedEntryPointIsRecordedUnderItsOwnName) {
  GLUquadric* q = gluNewQuadric();
  GLdouble out[16];
  GLint iout[16];
  const GLdouble m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const GLfloat c[4] = {1, 1, 1, 1};
  gleDouble pts[2][3] = {{0, 0, 0}, {0, 0, 1}};
  gleDouble contour2d[2][2] = {{0, 0}, {1, 0}};
  glPushMatrix();
  glPopMatrix();
  glMultMatrixd(m);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glGetDoublev(GL_MODELVIEW_MATRIX, out);
  glGetIntegerv(GL_MATRIX_MODE, iout);
  glGetError();
  glOrtho(-1, 1, -1, 1, -1, 1);
  const GLuint list = glGenLists(1);
  glIsList(list);
  glNewList(list, GL_COMPILE);
  glEndList();
  glCallList(list);
  glDeleteLists(list, 1);
  glMaterialfv(GL_FRONT, GL_DIFFUSE, c);
  glBegin(GL_POINTS);
  glVertex3d(0, 0, 0);
  glVertex3f(0, 0, 0);
  glNormal3f(0, 0, 1);
  glColor3d(1, 1, 1);
  glEnd();
  glTranslated(0, 0, 0);
  glRotated(0, 0, 0, 1);
  glTranslatef(0, 0, 0);
  glRotatef(0, 0, 0, 1);
  glScalef(1, 1, 1);
  glLineWidth(1);
  glEnable(GL_LIGHTING);
  glDisable(GL_LIGHTING);
  gluQuadricOrientation(q, GLU_OUTSIDE);
  gluQuadricDrawStyle(q, GLU_FILL);
  gluQuadricNormals(q, GLU_SMOOTH);
  gluSphere(q, 1, 8, 8);
  gluCylinder(q, 1, 1, 1, 8, 1);
  gluDisk(q, 0, 1, 8, 1);
  gluDeleteQuadric(q);
  gleSetJoinStyle(TUBE_JN_ANGLE);
  gleGetJoinStyle();
  gleSetNumSides(8);
  gleGetNumSides();
  gleToroid(0.1, 1, 0, 0, 0, nullptr, nullptr, 0, 360);
  gleHelicoid(0.1, 1, 0, 0, 1, nullptr, nullptr, 0, 360);
  glePolyCylinder(2, pts, nullptr, 0.1);
  gleSpiral(2, contour2d, nullptr, nullptr, 1, 0, 0, 1, nullptr, nullptr, 0, 360);
  gleExtrusion(2, contour2d, nullptr, nullptr, 2, pts, nullptr);

  std::vector<std::string> names;
  for (const glrecorder::Call& call : rec().calls()) {
    names.push_back(call.name);
  }
  EXPECT_THAT(
      names,
      ElementsAre("gluNewQuadric", "glPushMatrix", "glPopMatrix", "glMultMatrixd", "glMatrixMode",
                  "glLoadIdentity", "glGetDoublev", "glGetIntegerv", "glGetError", "glOrtho",
                  "glGenLists", "glIsList", "glNewList", "glEndList", "glCallList", "glDeleteLists",
                  "glMaterialfv", "glBegin", "glVertex3d", "glVertex3f", "glNormal3f", "glColor3d",
                  "glEnd", "glTranslated", "glRotated", "glTranslatef", "glRotatef", "glScalef",
                  "glLineWidth", "glEnable", "glDisable", "gluQuadricOrientation",
                  "gluQuadricDrawStyle", "gluQuadricNormals", "gluSphere", "gluCylinder", "gluDisk",
                  "gluDeleteQuadric", "gleSetJoinStyle", "gleGetJoinStyle", "gleSetNumSides",
                  "gleGetNumSides", "gleToroid", "gleHelicoid", "glePolyCylinder", "gleSpiral",
                  "gleExtrusion"));
  EXPECT_EQ(rec().pendingError(), GL_NO_ERROR);
}

TEST_F(GLRecorder, ResultsAreKeptBesideTheCall) {
  glGenLists(1);
  GLdouble depth = 0;
  glGetDoublev(GL_MODELVIEW_STACK_DEPTH, &depth);
  glGetError();
  ASSERT_EQ(rec().calls().size(), 3u);
  EXPECT_EQ(rec().calls()[0].strWithResult(), "glGenLists(1) -> 1");
  EXPECT_EQ(rec().calls()[1].str(), "glGetDoublev(GL_MODELVIEW_STACK_DEPTH)");
  EXPECT_EQ(rec().calls()[1].strWithResult(), "glGetDoublev(GL_MODELVIEW_STACK_DEPTH) -> [1]");
  EXPECT_EQ(rec().calls()[2].strWithResult(), "glGetError() -> GL_NO_ERROR");
}

TEST_F(GLRecorder, CallsNamedAndCountSelectOneEntryPoint) {
  glPushMatrix();
  glTranslated(1, 2, 3);
  glPushMatrix();
  EXPECT_EQ(rec().count("glPushMatrix"), 2u);
  EXPECT_EQ(rec().count("glPopMatrix"), 0u);
  EXPECT_THAT(glrecorder::lines(rec().callsNamed("glTranslated")),
              ElementsAre("glTranslated(1, 2, 3)"));
}

// ------------------------------------------------------------------ display lists

TEST_F(GLRecorder, GenListsHandsOutSequentialNamesFromOne) {
  EXPECT_EQ(glGenLists(1), 1u);
  EXPECT_EQ(glGenLists(1), 2u);
  EXPECT_EQ(glGenLists(3), 3u);
  EXPECT_EQ(glGenLists(1), 6u);
  EXPECT_TRUE(glIsList(1));
  EXPECT_TRUE(glIsList(5));
  EXPECT_FALSE(glIsList(0));
  EXPECT_FALSE(glIsList(7));
  EXPECT_FALSE(glIsList(static_cast<GLuint>(-1)));
}

TEST_F(GLRecorder, GenListsCanFailByReturningZero) {
  rec().setGenLists(glrecorder::GenLists::ReturnZero);
  EXPECT_EQ(glGenLists(1), 0u);
  EXPECT_FALSE(glIsList(0));
  EXPECT_EQ(rec().pendingError(), GL_NO_ERROR);
}

TEST_F(GLRecorder, GenListsCanReturnANameThatIsListRejects) {
  rec().setGenLists(glrecorder::GenLists::ReturnUnknown);
  const GLuint name = glGenLists(1);
  EXPECT_NE(name, 0u);
  EXPECT_FALSE(glIsList(name));
}

TEST_F(GLRecorder, GenListsWithNegativeRangeIsInvalidValue) {
  EXPECT_EQ(glGenLists(-1), 0u);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_VALUE));
}

TEST_F(GLRecorder, DeleteListsForgetsNamesAndNeverReusesThem) {
  glGenLists(2);
  glDeleteLists(1, 1);
  EXPECT_FALSE(glIsList(1));
  EXPECT_TRUE(glIsList(2));
  glDeleteLists(40, 3);  // unknown names are ignored
  EXPECT_EQ(rec().pendingError(), GL_NO_ERROR);
  EXPECT_EQ(glGenLists(1), 3u);
}

TEST_F(GLRecorder, ForgetAllListsActsLikeARecreatedContext) {
  glGenLists(3);
  rec().forgetAllLists();
  EXPECT_FALSE(glIsList(1));
  EXPECT_THAT(rec().listNames(), IsEmpty());
  EXPECT_EQ(glGenLists(1), 1u);
}

TEST_F(GLRecorder, ForgetListDropsOneName) {
  glGenLists(2);
  rec().forgetList(2);
  EXPECT_TRUE(glIsList(1));
  EXPECT_FALSE(glIsList(2));
}

TEST_F(GLRecorder, CallsBetweenNewListAndEndListAreFlaggedAndStored) {
  const GLuint list = glGenLists(1);
  glPushMatrix();
  glNewList(list, GL_COMPILE);
  glTranslated(0.0, 0.0, 2.0);
  glEndList();
  glPopMatrix();

  EXPECT_THAT(rec().compiledLog(), ElementsAre("glTranslated(0, 0, 2)"));
  EXPECT_THAT(rec().directLog(),
              ElementsAre("glGenLists(1)", "glPushMatrix()", "glNewList(1, GL_COMPILE)",
                          "glEndList()", "glPopMatrix()"));
  EXPECT_THAT(rec().listLog(list), ElementsAre("glTranslated(0, 0, 2)"));
  EXPECT_EQ(rec().calls()[3].list, list);
  EXPECT_TRUE(rec().calls()[3].inList());
  EXPECT_FALSE(rec().calls()[2].inList());
}

TEST_F(GLRecorder, CompileStoresWithoutExecuting) {
  glNewList(glGenLists(1), GL_COMPILE);
  glTranslated(1.0, 2.0, 3.0);
  glPushMatrix();
  glEndList();
  EXPECT_EQ(rec().matrix(GL_MODELVIEW), kIdentity);
  EXPECT_EQ(rec().stackDepth(GL_MODELVIEW), 1);
}

TEST_F(GLRecorder, CompileAndExecuteStoresAndExecutes) {
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE_AND_EXECUTE);
  glTranslated(1.0, 2.0, 3.0);
  glEndList();
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[12], 1.0);
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[14], 3.0);
  EXPECT_THAT(rec().listLog(list), ElementsAre("glTranslated(1, 2, 3)"));
}

TEST_F(GLRecorder, CallListExecutesTheStoredCalls) {
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  glTranslated(1.0, 0.0, 0.0);
  glPushMatrix();
  glEndList();
  glCallList(list);
  glCallList(list);
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[12], 2.0);
  EXPECT_EQ(rec().stackDepth(GL_MODELVIEW), 3);
  EXPECT_THAT(rec().executedLog(),
              ElementsAre("glGenLists(1)", "glNewList(1, GL_COMPILE)", "glEndList()",
                          "glCallList(1)", "glTranslated(1, 0, 0)", "glPushMatrix()",
                          "glCallList(1)", "glTranslated(1, 0, 0)", "glPushMatrix()"));
}

TEST_F(GLRecorder, NestedListsReplayRecursively) {
  const GLuint inner = glGenLists(1);
  const GLuint outer = glGenLists(1);
  glNewList(inner, GL_COMPILE);
  glScalef(2.0f, 2.0f, 2.0f);
  glEndList();
  glNewList(outer, GL_COMPILE);
  glCallList(inner);
  glCallList(inner);
  glEndList();
  glCallList(outer);
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[0], 4.0);
}

TEST_F(GLRecorder, SelfCallingListStopsAtTheNestingLimit) {
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  glTranslated(1.0, 0.0, 0.0);
  glCallList(list);
  glEndList();
  glCallList(list);
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[12], 64.0);
}

TEST_F(GLRecorder, CallListOfAnUnknownNameDoesNothing) {
  glCallList(9);
  EXPECT_EQ(rec().pendingError(), GL_NO_ERROR);
  EXPECT_THAT(rec().executedLog(), ElementsAre("glCallList(9)"));
}

TEST_F(GLRecorder, RecompilingAListReplacesItsContents) {
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  glTranslated(1.0, 0.0, 0.0);
  glEndList();
  glNewList(list, GL_COMPILE);
  glScalef(3.0f, 3.0f, 3.0f);
  glEndList();
  EXPECT_THAT(rec().listLog(list), ElementsAre("glScalef(3, 3, 3)"));
}

TEST_F(GLRecorder, NewListOnAnUngeneratedNameCreatesIt) {
  glNewList(5, GL_COMPILE);
  glEndList();
  EXPECT_TRUE(glIsList(5));
  EXPECT_EQ(glGenLists(1), 6u);
}

TEST_F(GLRecorder, ClientSideCallsInAListTakeEffectAtCompileTimeOnly) {
  GLUquadric* q = gluNewQuadric();
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  gleSetJoinStyle(530);
  gluQuadricOrientation(q, GLU_INSIDE);
  gluDisk(q, 0.0, 1.0, 8, 1);
  glEndList();
  EXPECT_EQ(rec().gleJoinStyle(), 530);
  EXPECT_EQ(rec().quadricOrientation(q), static_cast<GLenum>(GLU_INSIDE));

  gleSetJoinStyle(274);
  gluQuadricOrientation(q, GLU_OUTSIDE);
  rec().clearCalls();
  glCallList(list);
  EXPECT_EQ(rec().gleJoinStyle(), 274);
  EXPECT_EQ(rec().quadricOrientation(q), static_cast<GLenum>(GLU_OUTSIDE));
  // The list shows all three; only the disk is replayed.
  EXPECT_THAT(rec().listLog(list),
              ElementsAre("gleSetJoinStyle(530)", "gluQuadricOrientation(quad1, GLU_INSIDE)",
                          "gluDisk(quad1, 0, 1, 8, 1)"));
  EXPECT_TRUE(rec().listCalls(list)[0].immediate);
  EXPECT_FALSE(rec().listCalls(list)[2].immediate);
  EXPECT_THAT(rec().executedLog(), ElementsAre("glCallList(1)", "gluDisk(quad1, 0, 1, 8, 1)"));
}

TEST_F(GLRecorder, QueriesInsideAListAreAnsweredAtOnce) {
  glNewList(glGenLists(1), GL_COMPILE);
  GLint index = 0;
  glGetIntegerv(GL_LIST_INDEX, &index);
  glEndList();
  EXPECT_EQ(index, 1);
  EXPECT_EQ(rec().compilingList(), 0u);
}

TEST_F(GLRecorder, NewListInsideNewListIsInvalidOperation) {
  glNewList(glGenLists(1), GL_COMPILE);
  glNewList(glGenLists(1), GL_COMPILE);
  EXPECT_EQ(rec().pendingError(), static_cast<GLenum>(GL_INVALID_OPERATION));
  EXPECT_EQ(rec().compilingList(), 1u);
}

TEST_F(GLRecorder, EndListWithoutNewListIsInvalidOperation) {
  glEndList();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_OPERATION));
}

TEST_F(GLRecorder, NewListZeroIsInvalidValueAndBadModeInvalidEnum) {
  glNewList(0, GL_COMPILE);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_VALUE));
  glNewList(1, GL_LINES);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_ENUM));
  EXPECT_EQ(rec().compilingList(), 0u);
}

// ------------------------------------------------------------------ matrices

TEST_F(GLRecorder, FreshStateIsIdentityAtDepthOneInModelviewMode) {
  EXPECT_EQ(rec().matrixMode(), static_cast<GLenum>(GL_MODELVIEW));
  EXPECT_EQ(rec().matrix(GL_MODELVIEW), kIdentity);
  EXPECT_EQ(rec().matrix(GL_PROJECTION), kIdentity);
  EXPECT_EQ(rec().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(rec().stackDepth(GL_PROJECTION), 1);
  GLint mode = 0;
  glGetIntegerv(GL_MATRIX_MODE, &mode);
  EXPECT_EQ(mode, GL_MODELVIEW);
}

TEST_F(GLRecorder, TranslateRotateAndScaleMultiplyOnTheRight) {
  glTranslated(1.0, 2.0, 3.0);
  glRotated(90.0, 0.0, 0.0, 1.0);
  glScalef(2.0f, 3.0f, 4.0f);
  // T * Rz(90) * S, column-major.
  expectMatrixNear(rec().matrix(GL_MODELVIEW), {0, 2, 0, 0, -3, 0, 0, 0, 0, 0, 4, 0, 1, 2, 3, 1});
}

TEST_F(GLRecorder, RotateAboutAnArbitraryAxisFollowsTheGlFormula) {
  glRotatef(120.0f, 1.0f, 1.0f, 1.0f);
  // A third of a turn about (1, 1, 1) maps x to y, y to z and z to x.
  expectMatrixNear(rec().matrix(GL_MODELVIEW), {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1});
}

TEST_F(GLRecorder, RotateAboutANullAxisLeavesTheMatrix) {
  glTranslated(1.0, 0.0, 0.0);
  glRotated(45.0, 0.0, 0.0, 0.0);
  expectMatrixNear(rec().matrix(GL_MODELVIEW), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 1});
}

TEST_F(GLRecorder, MultMatrixPostMultipliesTheCurrentMatrix) {
  const GLdouble translate[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 0, 0, 1};
  const GLdouble scale[16] = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1};
  glMultMatrixd(translate);
  glMultMatrixd(scale);
  // T * S: the scale does not touch the translation.
  EXPECT_EQ(rec().matrix(GL_MODELVIEW),
            (glrecorder::Matrix{2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 5, 0, 0, 1}));
}

TEST_F(GLRecorder, OrthoBuildsTheGlOrthoMatrix) {
  glMatrixMode(GL_PROJECTION);
  glOrtho(-1.0, 1.0, -1.0, 1.0, 1.0, 100.0);
  GLdouble m[16];
  glGetDoublev(GL_PROJECTION_MATRIX, m);
  EXPECT_EQ(m[0], 1.0);
  EXPECT_EQ(m[5], 1.0);
  EXPECT_EQ(m[10], -2.0 / 99.0);
  EXPECT_EQ(m[14], -101.0 / 99.0);
  EXPECT_EQ(m[15], 1.0);
  EXPECT_EQ(rec().matrix(GL_MODELVIEW), kIdentity);
}

TEST_F(GLRecorder, OrthoWithEqualPlanesIsInvalidValue) {
  glOrtho(0.0, 1.0, 0.0, 1.0, 2.0, 2.0);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_VALUE));
  EXPECT_EQ(rec().matrix(GL_MODELVIEW), kIdentity);
}

TEST_F(GLRecorder, MatrixModeSelectsTheStackThatLoadIdentityResets) {
  glMatrixMode(GL_PROJECTION);
  glTranslated(1.0, 0.0, 0.0);
  glMatrixMode(GL_MODELVIEW);
  glTranslated(0.0, 1.0, 0.0);
  EXPECT_EQ(rec().matrix(GL_PROJECTION)[12], 1.0);
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[13], 1.0);
  glLoadIdentity();
  EXPECT_EQ(rec().matrix(GL_MODELVIEW), kIdentity);
  EXPECT_EQ(rec().matrix(GL_PROJECTION)[12], 1.0);
}

TEST_F(GLRecorder, UnknownMatrixModeIsInvalidEnum) {
  glMatrixMode(GL_LINES);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_ENUM));
  EXPECT_EQ(rec().matrixMode(), static_cast<GLenum>(GL_MODELVIEW));
}

TEST_F(GLRecorder, PushAndPopTrackTheDepthOfEachStack) {
  glPushMatrix();
  glPushMatrix();
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
  GLint depth = 0;
  glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
  EXPECT_EQ(depth, 3);
  glGetIntegerv(GL_PROJECTION_STACK_DEPTH, &depth);
  EXPECT_EQ(depth, 2);
  glPopMatrix();
  EXPECT_EQ(rec().stackDepth(GL_PROJECTION), 1);
  EXPECT_EQ(rec().stackDepth(GL_MODELVIEW), 3);
}

TEST_F(GLRecorder, PopRestoresThePushedMatrix) {
  glTranslated(1.0, 0.0, 0.0);
  glPushMatrix();
  glTranslated(5.0, 0.0, 0.0);
  glPopMatrix();
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[12], 1.0);
}

TEST_F(GLRecorder, PopAtDepthOneUnderflowsAndIsCounted) {
  glTranslated(1.0, 0.0, 0.0);
  glPopMatrix();
  glPopMatrix();
  EXPECT_EQ(rec().underflows(GL_MODELVIEW), 2);
  EXPECT_EQ(rec().underflows(GL_PROJECTION), 0);
  EXPECT_EQ(rec().underflows(), 2);
  EXPECT_EQ(rec().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[12], 1.0);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_STACK_UNDERFLOW));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(GLRecorder, PushAtTheMaximumDepthOverflowsAndIsCounted) {
  EXPECT_EQ(rec().maxStackDepth(GL_MODELVIEW), 32);
  rec().setMaxStackDepth(GL_MODELVIEW, 3);
  glPushMatrix();
  glPushMatrix();
  glPushMatrix();
  EXPECT_EQ(rec().stackDepth(GL_MODELVIEW), 3);
  EXPECT_EQ(rec().overflows(GL_MODELVIEW), 1);
  EXPECT_EQ(rec().overflows(), 1);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_STACK_OVERFLOW));
}

TEST_F(GLRecorder, GetErrorKeepsTheFirstErrorUntilRead) {
  glPopMatrix();
  glMatrixMode(GL_LINES);
  EXPECT_EQ(rec().pendingError(), static_cast<GLenum>(GL_STACK_UNDERFLOW));
  EXPECT_THAT(rec().errors(), ElementsAre(static_cast<GLenum>(GL_STACK_UNDERFLOW),
                                          static_cast<GLenum>(GL_INVALID_ENUM)));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_STACK_UNDERFLOW));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(GLRecorder, GetDoublevReturnsTheCurrentMatrices) {
  glTranslated(1.0, 2.0, 3.0);
  GLdouble m[16];
  glGetDoublev(GL_MODELVIEW_MATRIX, m);
  EXPECT_EQ(m[12], 1.0);
  EXPECT_EQ(m[13], 2.0);
  EXPECT_EQ(m[14], 3.0);
  glGetDoublev(GL_PROJECTION_MATRIX, m);
  EXPECT_EQ(m[12], 0.0);
}

TEST_F(GLRecorder, GetIntegervRoundsMatrixElements) {
  glScalef(2.6f, -1.4f, std::numeric_limits<float>::quiet_NaN());
  GLint m[16];
  glGetIntegerv(GL_MODELVIEW_MATRIX, m);
  EXPECT_EQ(m[0], 3);
  EXPECT_EQ(m[5], -1);
  EXPECT_EQ(m[10], 0);
  EXPECT_EQ(m[15], 1);
}

TEST_F(GLRecorder, GetOfAnUnknownNameIsInvalidEnumAndWritesNothing) {
  GLint value = 42;
  glGetIntegerv(GL_LIGHTING, &value);
  EXPECT_EQ(value, 42);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_ENUM));
}

TEST_F(GLRecorder, MatrixCallsBetweenBeginAndEndAreInvalidOperation) {
  glBegin(GL_LINES);
  glPushMatrix();
  glEnd();
  EXPECT_EQ(rec().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_OPERATION));
}

TEST_F(GLRecorder, EndWithoutBeginIsInvalidOperation) {
  glEnd();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_OPERATION));
}

// ------------------------------------------------------------------ other state

TEST_F(GLRecorder, MaterialAmbientAndDiffuseSetsBoth) {
  const GLfloat colour[] = {0.1f, 0.2f, 0.3f, 0.4f};
  glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, colour);
  const std::array<float, 4> expected{0.1f, 0.2f, 0.3f, 0.4f};
  EXPECT_EQ(rec().material(GL_FRONT, GL_AMBIENT), expected);
  EXPECT_EQ(rec().material(GL_FRONT, GL_DIFFUSE), expected);
  EXPECT_EQ(rec().material(GL_BACK, GL_DIFFUSE), (std::array<float, 4>{0.8f, 0.8f, 0.8f, 1.0f}));
}

TEST_F(GLRecorder, CurrentColourNormalLineWidthAndCapsAreTracked) {
  glColor3d(0.25, 0.5, 0.75);
  glNormal3f(0.0f, 1.0f, 0.0f);
  glLineWidth(3.0f);
  glEnable(GL_BLEND);
  EXPECT_EQ(rec().currentColor(), (std::array<double, 4>{0.25, 0.5, 0.75, 1.0}));
  EXPECT_EQ(rec().currentNormal(), (std::array<float, 3>{0.0f, 1.0f, 0.0f}));
  EXPECT_EQ(rec().lineWidth(), 3.0f);
  EXPECT_TRUE(rec().isEnabled(GL_BLEND));
  glDisable(GL_BLEND);
  EXPECT_FALSE(rec().isEnabled(GL_BLEND));
  glLineWidth(0.0f);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_VALUE));
}

TEST_F(GLRecorder, PrimitivesKeepObjectAndEyeCoordinates) {
  glTranslated(0.0, 0.0, 5.0);
  glBegin(GL_LINE_STRIP);
  glVertex3d(1.0, 0.0, 0.0);
  glVertex3f(0.0f, 2.0f, 0.0f);
  glEnd();
  ASSERT_EQ(rec().primitives().size(), 1u);
  const glrecorder::Primitive& p = rec().primitives()[0];
  EXPECT_EQ(p.mode, static_cast<GLenum>(GL_LINE_STRIP));
  EXPECT_EQ(p.vertices, (std::vector<std::array<double, 3>>{{1, 0, 0}, {0, 2, 0}}));
  EXPECT_EQ(p.eyeVertices, (std::vector<std::array<double, 3>>{{1, 0, 5}, {0, 2, 5}}));
}

TEST_F(GLRecorder, VectorAndTwoDimensionalFormsAreRecordedUnderTheirOwnNames) {
  const GLdouble d3[3] = {1, 2, 3};
  const GLfloat f3[3] = {0.5f, 0.25f, 2};
  const GLdouble d4[4] = {0.1, 0.2, 0.3, 0.4};
  glBegin(GL_TRIANGLE_STRIP);
  glNormal3d(0, 1, 0);
  glNormal3dv(d3);
  glNormal3fv(f3);
  glColor3dv(d3);
  glColor4d(0.1, 0.2, 0.3, 0.4);
  glColor4dv(d4);
  glVertex3dv(d3);
  glVertex3fv(f3);
  glVertex2d(4, 5);
  glVertex2f(6, 7);
  glEnd();
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  glIsEnabled(GL_LIGHTING);
  EXPECT_LINES((std::vector<std::string>{
                   "glBegin(GL_TRIANGLE_STRIP)",
                   "glNormal3d(0, 1, 0)",
                   "glNormal3dv([1, 2, 3])",
                   "glNormal3fv([0.5, 0.25, 2])",
                   "glColor3dv([1, 2, 3])",
                   "glColor4d(0.1, 0.2, 0.3, 0.4)",
                   "glColor4dv([0.1, 0.2, 0.3, 0.4])",
                   "glVertex3dv([1, 2, 3])",
                   "glVertex3fv([0.5, 0.25, 2])",
                   "glVertex2d(4, 5)",
                   "glVertex2f(6, 7)",
                   "glEnd()",
                   "glPolygonMode(GL_FRONT_AND_BACK, GL_LINE)",
                   "glIsEnabled(GL_LIGHTING)",
               }),
               rec().log());
  EXPECT_EQ(rec().pendingError(), GL_NO_ERROR);
}

TEST_F(GLRecorder, VectorFormsSetTheCurrentValuesAndVertices) {
  const GLdouble normal[3] = {0.0, 0.1, 1.0};
  const GLdouble colour[4] = {0.25, 0.5, 0.75, 0.125};
  const GLdouble vertex[3] = {1.0, 2.0, 3.0};
  const GLfloat fvertex[3] = {4.0f, 5.0f, 6.0f};
  glTranslated(0.0, 0.0, 10.0);
  glNormal3dv(normal);
  // The current normal is kept in single precision, as GL keeps it.
  EXPECT_EQ(rec().currentNormal(), (std::array<float, 3>{0.0f, 0.1f, 1.0f}));
  glNormal3d(1.0, 0.0, 0.0);
  EXPECT_EQ(rec().currentNormal(), (std::array<float, 3>{1.0f, 0.0f, 0.0f}));
  glColor4dv(colour);
  EXPECT_EQ(rec().currentColor(), (std::array<double, 4>{0.25, 0.5, 0.75, 0.125}));
  glColor3dv(colour);  // alpha back to 1
  EXPECT_EQ(rec().currentColor(), (std::array<double, 4>{0.25, 0.5, 0.75, 1.0}));
  glBegin(GL_QUAD_STRIP);
  glVertex3dv(vertex);
  glVertex3fv(fvertex);
  glVertex2d(7.0, 8.0);
  glVertex2f(9.0f, 10.0f);
  glEnd();
  ASSERT_EQ(rec().primitives().size(), 1u);
  const glrecorder::Primitive& p = rec().primitives()[0];
  EXPECT_EQ(p.mode, static_cast<GLenum>(GL_QUAD_STRIP));
  EXPECT_EQ(p.vertices,
            (std::vector<std::array<double, 3>>{{1, 2, 3}, {4, 5, 6}, {7, 8, 0}, {9, 10, 0}}));
  EXPECT_EQ(p.eyeVertices,
            (std::vector<std::array<double, 3>>{{1, 2, 13}, {4, 5, 16}, {7, 8, 10}, {9, 10, 10}}));
}

TEST_F(GLRecorder, NullVectorsPrintAsNullAndChangeNothing) {
  glNormal3dv(nullptr);
  glColor4dv(nullptr);
  glBegin(GL_POLYGON);
  glVertex3fv(nullptr);
  glEnd();
  EXPECT_THAT(rec().log(), ElementsAre("glNormal3dv(NULL)", "glColor4dv(NULL)",
                                       "glBegin(GL_POLYGON)", "glVertex3fv(NULL)", "glEnd()"));
  EXPECT_EQ(rec().currentNormal(), (std::array<float, 3>{0.0f, 0.0f, 1.0f}));
  EXPECT_EQ(rec().currentColor(), (std::array<double, 4>{1.0, 1.0, 1.0, 1.0}));
  ASSERT_EQ(rec().primitives().size(), 1u);
  EXPECT_THAT(rec().primitives()[0].vertices, IsEmpty());
}

TEST_F(GLRecorder, PolygonModeIsTrackedPerFaceAndQueried) {
  EXPECT_EQ(rec().polygonMode(GL_FRONT), static_cast<GLenum>(GL_FILL));
  EXPECT_EQ(rec().polygonMode(GL_BACK), static_cast<GLenum>(GL_FILL));
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  glPolygonMode(GL_BACK, GL_POINT);
  EXPECT_EQ(rec().polygonMode(GL_FRONT), static_cast<GLenum>(GL_LINE));
  EXPECT_EQ(rec().polygonMode(GL_BACK), static_cast<GLenum>(GL_POINT));
  GLint modes[2] = {0, 0};
  glGetIntegerv(GL_POLYGON_MODE, modes);
  EXPECT_EQ(modes[0], GL_LINE);
  EXPECT_EQ(modes[1], GL_POINT);
  EXPECT_EQ(rec().pendingError(), GL_NO_ERROR);
}

TEST_F(GLRecorder, PolygonModeRejectsUnknownValuesAndCallsInsideBegin) {
  glPolygonMode(GL_FRONT, GLU_LINE);  // GLU's enum, not GL's
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_ENUM));
  glBegin(GL_LINES);
  glPolygonMode(GL_FRONT, GL_LINE);
  glEnd();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_OPERATION));
  EXPECT_EQ(rec().polygonMode(GL_FRONT), static_cast<GLenum>(GL_FILL));
}

TEST_F(GLRecorder, PolygonModeInAListTakesEffectWhenCalled) {
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  glEndList();
  EXPECT_EQ(rec().polygonMode(GL_FRONT), static_cast<GLenum>(GL_FILL));
  glCallList(list);
  EXPECT_EQ(rec().polygonMode(GL_FRONT), static_cast<GLenum>(GL_LINE));
}

TEST_F(GLRecorder, IsEnabledAnswersAtOnceEvenInAList) {
  glEnable(GL_LIGHTING);
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  glDisable(GL_LIGHTING);  // compiled, not executed
  EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_TRUE);
  glEndList();
  EXPECT_EQ(rec().calls().back().name, "glEndList");
  EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
  EXPECT_EQ(rec().calls().back().strWithResult(), "glIsEnabled(GL_BLEND) -> 0");
  EXPECT_THAT(rec().listLog(list),
              ElementsAre("glDisable(GL_LIGHTING)", "glIsEnabled(GL_LIGHTING)"));
  ASSERT_EQ(rec().listCalls(list).size(), 2u);
  EXPECT_TRUE(rec().listCalls(list)[1].immediate);
}

TEST_F(GLRecorder, IsEnabledInsideBeginIsInvalidOperationAndFalse) {
  glEnable(GL_LIGHTING);
  glBegin(GL_LINE_STRIP);
  EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_FALSE);
  glEnd();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_OPERATION));
}

// ------------------------------------------------------------------ quadrics

TEST_F(GLRecorder, QuadricsGetDistinctHandlesWithReadableNames) {
  GLUquadric* first = gluNewQuadric();
  GLUquadric* second = gluNewQuadric();
  ASSERT_NE(first, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(rec().quadricName(first), "quad1");
  EXPECT_EQ(rec().quadricName(second), "quad2");
  gluCylinder(second, 0.2 * 0.4, 0.2 * 0.4, 0.8, 128, 8);
  EXPECT_EQ(rec().log().back(),
            "gluCylinder(quad2, 0.08000000000000002, 0.08000000000000002, 0.8, 128, 8)");
  EXPECT_EQ(rec().log().back(),
            glrecorder::line("gluCylinder", second, 0.2 * 0.4, 0.2 * 0.4, 0.8, 128, 8));
  EXPECT_EQ(rec().calls()[0].strWithResult(), "gluNewQuadric() -> quad1");
  EXPECT_EQ(rec().quadricsCreated(), 2);
}

TEST_F(GLRecorder, QuadricStateStartsAtGluDefaults) {
  GLUquadric* q = gluNewQuadric();
  EXPECT_EQ(rec().quadricOrientation(q), static_cast<GLenum>(GLU_OUTSIDE));
  EXPECT_EQ(rec().quadricDrawStyle(q), static_cast<GLenum>(GLU_FILL));
  EXPECT_EQ(rec().quadricNormals(q), static_cast<GLenum>(GLU_SMOOTH));
  gluQuadricOrientation(q, GLU_INSIDE);
  gluQuadricDrawStyle(q, GLU_LINE);
  gluQuadricNormals(q, GLU_FLAT);
  EXPECT_EQ(rec().quadricOrientation(q), static_cast<GLenum>(GLU_INSIDE));
  EXPECT_EQ(rec().quadricDrawStyle(q), static_cast<GLenum>(GLU_LINE));
  EXPECT_EQ(rec().quadricNormals(q), static_cast<GLenum>(GLU_FLAT));
}

TEST_F(GLRecorder, DeletingAQuadricTwiceIsRecordedAndCounted) {
  GLUquadric* q = gluNewQuadric();
  EXPECT_EQ(rec().liveQuadrics(), 1);
  gluDeleteQuadric(q);
  EXPECT_FALSE(rec().isLiveQuadric(q));
  EXPECT_EQ(rec().liveQuadrics(), 0);
  gluDeleteQuadric(q);
  EXPECT_EQ(rec().doubleDeletes(), 1);
  EXPECT_THAT(rec().log(),
              ElementsAre("gluNewQuadric()", "gluDeleteQuadric(quad1)", "gluDeleteQuadric(quad1)"));
}

TEST_F(GLRecorder, DeletingNullIsHarmless) {
  gluDeleteQuadric(nullptr);
  EXPECT_EQ(rec().doubleDeletes(), 0);
  EXPECT_THAT(rec().log(), ElementsAre("gluDeleteQuadric(NULL)"));
}

TEST_F(GLRecorder, UsingADeletedQuadricIsCounted) {
  GLUquadric* q = gluNewQuadric();
  gluDeleteQuadric(q);
  gluSphere(q, 1.0, 8, 8);
  gluQuadricOrientation(q, GLU_INSIDE);
  EXPECT_EQ(rec().deadQuadricUses(), 2);
}

TEST_F(GLRecorder, QuadricsFromBeforeAResetPrintAsOld) {
  GLUquadric* old = gluNewQuadric();
  rec().reset();
  GLUquadric* fresh = gluNewQuadric();
  EXPECT_NE(old, fresh);
  EXPECT_EQ(rec().quadricName(fresh), "quad1");
  EXPECT_EQ(rec().quadricName(old), "old-quad1");
  int notAQuadric = 0;
  EXPECT_EQ(rec().quadricName(reinterpret_cast<GLUquadric*>(&notAQuadric)), "quad?");
}

TEST_F(GLRecorder, NewQuadricCanFail) {
  rec().setNewQuadricFails(true);
  EXPECT_EQ(gluNewQuadric(), nullptr);
  EXPECT_EQ(rec().calls()[0].strWithResult(), "gluNewQuadric() -> NULL");
}

// ------------------------------------------------------------------ GLE

TEST_F(GLRecorder, GleStartsWithItsDocumentedDefaults) {
  EXPECT_EQ(gleGetJoinStyle(), TUBE_NORM_FACET | TUBE_JN_CAP | TUBE_JN_ANGLE);
  EXPECT_EQ(gleGetNumSides(), 20);
}

TEST_F(GLRecorder, GleSettingsReadBackWhatWasSet) {
  gleSetJoinStyle(TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE);
  gleSetNumSides(12);
  EXPECT_EQ(gleGetJoinStyle(), 530);
  EXPECT_EQ(gleGetNumSides(), 12);
  EXPECT_EQ(rec().gleJoinStyle(), 530);
  EXPECT_THAT(rec().log(), ElementsAre("gleSetJoinStyle(530)", "gleSetNumSides(12)",
                                       "gleGetJoinStyle()", "gleGetNumSides()"));
}

TEST_F(GLRecorder, NegativeGleSideCountReadsBackAsZero) {
  gleSetNumSides(-5);
  EXPECT_EQ(gleGetNumSides(), 0);
}

TEST_F(GLRecorder, GleSweepsRecordTheirArrays) {
  gleDouble points[3][3] = {{0, 0, -1}, {0, 0, 0}, {0, 0.5, 1}};
  gleColor colours[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  glePolyCylinder(3, points, colours, 0.1);
  gleDouble start[2][3] = {{1, 0, 0}, {0, 1, 0}};
  gleHelicoid(0.1, 1.0, 0.0, 0.0, 2.0, start, nullptr, 0.0, 720.0);
  EXPECT_THAT(rec().log(),
              ElementsAre("glePolyCylinder(3, [[0, 0, -1], [0, 0, 0], [0, 0.5, 1]], "
                          "[[1, 0, 0], [0, 1, 0], [0, 0, 1]], 0.1)",
                          "gleHelicoid(0.1, 1, 0, 0, 2, [[1, 0, 0], [0, 1, 0]], NULL, 0, 720)"));
}

TEST_F(GLRecorder, GleSweepsCarryTheSettingsInForceWhenIssued) {
  gleSetJoinStyle(TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE);
  gleSetNumSides(12);
  gleToroid(0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0);
  const glrecorder::Call& sweep = rec().calls().back();
  ASSERT_TRUE(sweep.gle.has_value());
  EXPECT_EQ(sweep.gle->joinStyle, 530);
  EXPECT_EQ(sweep.gle->numSides, 12);
  // The log line itself is unchanged; the settings are asked for separately.
  EXPECT_EQ(sweep.str(), "gleToroid(0.1, 1, 0, 0, 0, NULL, NULL, 0, 360)");
  EXPECT_EQ(glrecorder::withGleSettings(sweep),
            "gleToroid(0.1, 1, 0, 0, 0, NULL, NULL, 0, 360) [join=530 sides=12]");
}

TEST_F(GLRecorder, EveryGleSweepCarriesItsSettings) {
  gleDouble pts[2][3] = {{0, 0, 0}, {0, 0, 1}};
  gleDouble contour2d[2][2] = {{0, 0}, {1, 0}};
  gleSetNumSides(7);
  gleToroid(0.1, 1, 0, 0, 0, nullptr, nullptr, 0, 360);
  gleHelicoid(0.1, 1, 0, 0, 1, nullptr, nullptr, 0, 360);
  glePolyCylinder(2, pts, nullptr, 0.1);
  gleSpiral(2, contour2d, nullptr, nullptr, 1, 0, 0, 1, nullptr, nullptr, 0, 360);
  gleExtrusion(2, contour2d, nullptr, nullptr, 2, pts, nullptr);
  EXPECT_THAT(
      glrecorder::gleLines(rec().calls()),
      ElementsAre("gleToroid(0.1, 1, 0, 0, 0, NULL, NULL, 0, 360) [join=274 sides=7]",
                  "gleHelicoid(0.1, 1, 0, 0, 1, NULL, NULL, 0, 360) [join=274 sides=7]",
                  "glePolyCylinder(2, [[0, 0, 0], [0, 0, 1]], NULL, 0.1) "
                  "[join=274 sides=7]",
                  "gleSpiral(2, [[0, 0], [1, 0]], NULL, NULL, 1, 0, 0, 1, NULL, NULL, 0, "
                  "360) [join=274 sides=7]",
                  "gleExtrusion(2, [[0, 0], [1, 0]], NULL, NULL, 2, [[0, 0, 0], [0, 0, 1]], "
                  "NULL) [join=274 sides=7]"));
}

TEST_F(GLRecorder, CallsOtherThanGleSweepsCarryNoGleSettings) {
  gleSetJoinStyle(TUBE_JN_ANGLE);
  gleGetNumSides();
  glBegin(GL_LINES);
  glEnd();
  for (const glrecorder::Call& call : rec().calls()) {
    EXPECT_FALSE(call.gle.has_value()) << call;
    EXPECT_EQ(glrecorder::withGleSettings(call), call.str());
  }
  EXPECT_THAT(glrecorder::gleLines(rec().calls()), IsEmpty());
}

TEST_F(GLRecorder, ALaterListInheritsTheGleSettingsAnEarlierOneSet) {
  const GLuint first = glGenLists(2);
  const GLuint second = first + 1;
  glNewList(first, GL_COMPILE);
  gleSetJoinStyle(530);
  gleSetNumSides(32);
  gleToroid(0.1, 1, 0, 0, 0, nullptr, nullptr, 0, 360);
  glEndList();
  glNewList(second, GL_COMPILE);
  gleToroid(0.2, 1, 0, 0, 0, nullptr, nullptr, 0, 360);
  glEndList();
  const std::string sweep =
      glrecorder::line("gleToroid", 0.2, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0);
  EXPECT_LINES({glrecorder::withGle(sweep, 530, 32)},
               glrecorder::gleLines(rec().listCalls(second)));
}

TEST_F(GLRecorder, ReplayedSweepsKeepTheSettingsOfTheirCompile) {
  const GLuint list = glGenLists(1);
  gleSetNumSides(9);
  glNewList(list, GL_COMPILE);
  gleToroid(0.1, 1, 0, 0, 0, nullptr, nullptr, 0, 360);
  glEndList();
  gleSetNumSides(40);
  rec().clearCalls();
  glCallList(list);
  EXPECT_THAT(glrecorder::gleLines(rec().executedCalls()),
              ElementsAre("gleToroid(0.1, 1, 0, 0, 0, NULL, NULL, 0, 360) [join=274 sides=9]"));
}

// ------------------------------------------------------------------ reset and diff

TEST_F(GLRecorder, ResetRestoresAFreshContext) {
  glNewList(glGenLists(1), GL_COMPILE);
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
  glPopMatrix();
  glPopMatrix();
  gleSetNumSides(3);
  gluNewQuadric();
  rec().setGenLists(glrecorder::GenLists::ReturnZero);
  rec().reset();
  EXPECT_THAT(rec().calls(), IsEmpty());
  EXPECT_EQ(rec().compilingList(), 0u);
  EXPECT_EQ(rec().pendingError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_EQ(rec().underflows(), 0);
  EXPECT_EQ(rec().gleNumSides(), 20);
  EXPECT_EQ(rec().quadricsCreated(), 0);
  EXPECT_EQ(glGenLists(1), 1u);
}

TEST_F(GLRecorder, ClearCallsKeepsTheState) {
  glGenLists(1);
  glTranslated(1.0, 0.0, 0.0);
  rec().clearCalls();
  EXPECT_THAT(rec().log(), IsEmpty());
  EXPECT_TRUE(glIsList(1));
  EXPECT_EQ(rec().matrix(GL_MODELVIEW)[12], 1.0);
}

TEST(GLRecorderDiff, EqualLinesHaveAnEmptyDiff) {
  EXPECT_EQ(glrecorder::diff({"a", "b"}, {"a", "b"}), "");
}

TEST(GLRecorderDiff, ChangedLinesShowWithContext) {
  const std::vector<std::string> expected{"1", "2", "3", "4", "5", "6", "7", "8", "9"};
  const std::vector<std::string> actual{"1", "2", "3", "4", "5", "six", "7", "8", "9", "10"};
  EXPECT_EQ(glrecorder::diff(expected, actual),
            "--- expected\n"
            "+++ actual\n"
            "@@ expected line 3, actual line 3 @@\n"
            "  3\n"
            "  4\n"
            "  5\n"
            "- 6\n"
            "+ six\n"
            "  7\n"
            "  8\n"
            "  9\n"
            "+ 10\n");
}

TEST(GLRecorderDiff, LinesEqExplainsAMismatchWithTheDiff) {
  const auto matcher = glrecorder::LinesEq({"glPushMatrix()", "glPopMatrix()"});
  ::testing::StringMatchResultListener listener;
  EXPECT_FALSE(::testing::ExplainMatchResult(
      matcher, std::vector<std::string>{"glPushMatrix()", "glPushMatrix()"}, &listener));
  EXPECT_THAT(listener.str(), ::testing::HasSubstr("- glPopMatrix()\n+ glPushMatrix()\n"));
  EXPECT_THAT((std::vector<std::string>{"glPushMatrix()", "glPopMatrix()"}), matcher);
}

}  // namespace

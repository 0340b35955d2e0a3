#include <gtest/gtest.h>

#include <lumagrid/CGLObject.h>

#include <cctype>
#include <set>
#include <string>

#include "gallery_catalog.h"
#include "gallery_shapes.h"

namespace {

using gallery::catalog;

std::string wordsOf(const std::string& label) {
  std::string name = label;
  for (char& c : name) {
    c = c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return name;
}

TEST(Catalog, NamesAreTheLabelsWordsInLowerCase) {
  for (const gallery::Entry& e : catalog()) {
    EXPECT_EQ(e.name, wordsOf(e.label));
  }
}

TEST(Catalog, NamesAreUnique) {
  std::set<std::string> names;
  for (const gallery::Entry& e : catalog()) {
    EXPECT_TRUE(names.insert(e.name).second) << e.name;
  }
}

TEST(Catalog, FindEntryGivesTheIndexOrTheSize) {
  EXPECT_EQ(gallery::findEntry("sphere-alpha"), 0u);
  EXPECT_EQ(gallery::findEntry("tension-lines-3"), catalog().size() - 1);
  EXPECT_EQ(gallery::findEntry("tension-lines-4"), catalog().size());
}

// Shapes are built without a context: building one makes no GL call.
TEST(Catalog, EveryEntryBuildsAShape) {
  for (std::size_t i = 0; i < catalog().size(); ++i) {
    EXPECT_FALSE(gallery::buildShapes(i, {0.0, 0.0}, 1.0).empty()) << catalog()[i].name;
  }
}

TEST(Catalog, OnlyTheSelectedEntryBuildsASelectedShape) {
  for (std::size_t i = 0; i < catalog().size(); ++i) {
    const bool wanted = catalog()[i].name == gallery::kSelectedEntry;
    for (const gallery::PlacedShape& p : gallery::buildShapes(i, {0.0, 0.0}, 1.0)) {
      EXPECT_EQ(p.shape->IsSelected() != 0, wanted) << catalog()[i].name;
    }
  }
}

}  // namespace

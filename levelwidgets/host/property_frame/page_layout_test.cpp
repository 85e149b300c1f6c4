// Where the fields of property pages stand.
#include <levelwidgets/host/property_frame/page_layout.h>

#include <gtest/gtest.h>

#include <map>

#include <levelwidgets/pages/registry.h>

namespace levelwidgets {
namespace {

// Characters of a width.
std::function<Twips(std::string_view)> Wide(float twips) {
  return [twips](std::string_view text) { return Twips(twips * static_cast<float>(text.size())); };
}
const auto kWidthOf = Wide(90);

struct Box {
  float left, top, right, bottom;
};

Box BoxOf(const PagePart& part) {
  const auto& [at, size] = part.place;
  return {at.x.value, at.y.value, (at.x + size->width).value, (at.y + size->height).value};
}

bool Meet(const Box& a, const Box& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST(PageLayoutTest, NoPartCoversAnotherAndAllAreInside) {
  std::vector<std::pair<const PageInfo*, float>> tried;
  for (const PageInfo* page : Pages()) {
    for (const float width : {10.0f, 90.0f, 300.0f}) tried.emplace_back(page, width);
  }
  for (const auto& [page, width] : tried) {
    const PageLayout layout = LayOutPage(*page, Wide(width));
    for (const PagePart& part : layout.parts) {
      const Box box = BoxOf(part);
      EXPECT_GE(box.left, 0) << page->name << " " << part.name;
      EXPECT_GE(box.top, 0) << page->name << " " << part.name;
      EXPECT_LE(box.right, layout.size.width.value) << page->name << " " << part.name;
      EXPECT_LE(box.bottom, layout.size.height.value) << page->name << " " << part.name;
      EXPECT_GT(box.right, box.left) << page->name << " " << part.name;
      for (const PagePart& other : layout.parts) {
        const bool framed = part.field->kind == FieldKind::kFrame || other.field->kind == FieldKind::kFrame;
        EXPECT_TRUE(&part == &other || framed || !Meet(box, BoxOf(other)))
            << page->name << " " << part.name << " and " << other.name;
      }
    }
  }
}

TEST(PageLayoutTest, EveryFieldIsThereOnceInOrderAndItsCaptionBeforeIt) {
  for (const PageInfo* page : Pages()) {
    const PageLayout layout = LayOutPage(*page, kWidthOf);
    std::vector<const FieldInfo*> fields;
    for (std::size_t i = 0; i < layout.parts.size(); ++i) {
      const PagePart& part = layout.parts[i];
      if (fields.empty() || fields.back() != part.field) fields.push_back(part.field);
      if (part.kind != PagePart::Kind::kLabel) continue;
      const PagePart& field = layout.parts[i + 1];
      EXPECT_EQ(field.field, part.field) << part.name;
      EXPECT_EQ(part.caption, part.field->caption);
      EXPECT_LE(BoxOf(part).right, BoxOf(field).left) << part.name;
      EXPECT_GE(BoxOf(part).top, BoxOf(field).top) << part.name;
      EXPECT_LE(BoxOf(part).bottom, BoxOf(field).bottom) << part.name;
    }
    ASSERT_EQ(fields.size(), page->fields.size()) << page->name;
    for (std::size_t i = 0; i < fields.size(); ++i) EXPECT_EQ(fields[i], &page->fields[i]);
  }
}

TEST(PageLayoutTest, ThePartsOfAFrameStandInside) {
  for (const float width : {10.0f, 90.0f}) {
    const PageLayout layout = LayOutPage(ppFlatGridColumns(), Wide(width));
    Box frame{};
    for (const PagePart& part : layout.parts) {
      if (part.name == "Frame1") frame = BoxOf(part);
    }
    for (const PagePart& part : layout.parts) {
      const Box box = BoxOf(part);
      const bool inside = box.left > frame.left && box.top > frame.top && box.right < frame.right &&
                          box.bottom < frame.bottom;
      EXPECT_EQ(inside, part.field->frame == "Frame1") << part.name;
    }
  }
}

TEST(PageLayoutTest, NamedCaptionsHaveTheirNamesAndTheOthersThoseOfTheirFields) {
  std::map<std::string, std::string> names;
  for (const PageInfo* page : {&ppFlatGrid(), &ppFlatGridColumns(), &ppFlatCalendar(), &ppFlatButton()}) {
    for (const PagePart& part : LayOutPage(*page, kWidthOf).parts) {
      if (part.kind == PagePart::Kind::kLabel) names[part.name] = part.caption;
    }
  }
  const std::map<std::string, std::string> expected = {{"lblRowCount", "Row Count:"},
                                                       {"lblRowHeight", "Row Height:"},
                                                       {"lblDateFormat", "Date Format:"},
                                                       {"lblFortxtCaption", "Caption:"},
                                                       {"Label6", "Columns:"},
                                                       {"Label1", "Caption:"},
                                                       {"Label2", "Width:"},
                                                       {"Label3", "Alignment:"},
                                                       {"Label4", "Header Alignment:"},
                                                       {"Label5", "Format:"},
                                                       {"Label7", "Edit Type:"}};
  EXPECT_EQ(names, expected);
}

}  // namespace
}  // namespace levelwidgets

#include <levelwidgets/host/property_frame/page_layout.h>

#include <algorithm>
#include <optional>

namespace levelwidgets {

namespace {

constexpr Twips kGap(120);
constexpr Twips kRowGap(120);
constexpr Twips kFieldHeight(255);
constexpr Twips kFieldWidth(2400);
constexpr Twips kCheckHeight(255);
constexpr Twips kBox(345);         // of a check box, with what is between it and its caption
constexpr Twips kTextHeight(210);  // of a caption beside a field
constexpr Twips kTextDown(15);     // from the top of the field
constexpr Twips kButtonHeight(345);
constexpr Twips kButtonMargins(240);  // left and right of its caption, together
constexpr Twips kFrameTop(300);
constexpr Twips kFrameInset(180);

bool HoldsValue(const FieldInfo& field) {
  return field.kind == FieldKind::kText || field.kind == FieldKind::kList || field.kind == FieldKind::kCombo;
}

class Layout {
 public:
  Layout(const PageInfo& page, const std::function<Twips(std::string_view)>& width_of)
      : page_(page), width_of_(width_of) {
    Twips inset;
    for (const FieldInfo& field : page.fields) {
      if (HoldsValue(field)) column_ = std::max(column_, width_of(field.caption) + kGap);
      if (!field.frame.empty()) inset = kFrameInset;
    }
    column_ = column_ + inset;
  }

  PageLayout Make() {
    for (const FieldInfo& field : page_.fields) {
      if (frame_ && field.frame != layout_.parts[*frame_].field->name) EndFrame();
      Add(field);
    }
    if (frame_) EndFrame();
    layout_.size = {right_, y_ - kRowGap};
    return std::move(layout_);
  }

 private:
  void Add(const FieldInfo& field) {
    switch (field.kind) {
      case FieldKind::kText:
      case FieldKind::kList:
      case FieldKind::kCombo: return AddValue(field);
      case FieldKind::kCheck: return AddCheck(field);
      case FieldKind::kLabel: return AddLabel(field);
      case FieldKind::kButtons: return AddButtons(field);
      case FieldKind::kFrame: return BeginFrame(field);
    }
  }

  void AddValue(const FieldInfo& field) {
    if (!field.caption.empty()) {
      const std::string name =
          field.label.empty() ? "lblFor" + std::string(field.name) : std::string(field.label);
      Put({&field,
           PagePart::Kind::kLabel,
           name,
           std::string(field.caption),
           0,
           {{Left(), y_ + kTextDown}, TwipSize{width_of_(field.caption) + Twips(30), kTextHeight}}});
    } else {
      y_ = y_ + kGap;  // it begins something else
    }
    const TwipPoint at{column_, y_};
    Put({&field,
         PagePart::Kind::kField,
         std::string(field.name),
         {},
         0,
         {at, TwipSize{kFieldWidth, kFieldHeight}}});
    y_ = y_ + kFieldHeight + kRowGap;
  }

  void AddCheck(const FieldInfo& field) {
    Put({&field,
         PagePart::Kind::kField,
         std::string(field.name),
         {},
         0,
         {{Left(), y_}, TwipSize{kBox + width_of_(field.caption), kCheckHeight}}});
    y_ = y_ + kCheckHeight + kRowGap;
  }

  // Beside the field before it. Its number may grow.
  void AddLabel(const FieldInfo& field) {
    const Twips top = y_ - kRowGap - kFieldHeight + kTextDown;
    Put({&field,
         PagePart::Kind::kField,
         std::string(field.name),
         {},
         0,
         {{right_ + kGap, top}, TwipSize{width_of_(std::string(field.caption) + "0000"), kTextHeight}}});
  }

  void AddButtons(const FieldInfo& field) {
    Twips left = Left();
    for (std::size_t i = 0; i < field.items.size(); ++i) {
      const Twips width = width_of_(field.items[i]) + kButtonMargins;
      Put({&field,
           PagePart::Kind::kButton,
           std::string(field.name) + std::to_string(i),
           std::string(field.items[i]),
           static_cast<int>(i),
           {{left, y_}, TwipSize{width, kButtonHeight}}});
      left = left + width + kGap;
    }
    y_ = y_ + kButtonHeight + kRowGap;
  }

  void BeginFrame(const FieldInfo& field) {
    y_ = y_ + kGap;
    layout_.parts.push_back(
        {&field, PagePart::Kind::kField, std::string(field.name), {}, 0, {{Twips(), y_}, TwipSize{}}});
    frame_ = layout_.parts.size() - 1;
    y_ = y_ + kFrameTop;
  }

  void EndFrame() {
    PagePart& frame = layout_.parts[*frame_];
    right_ = std::max(right_, frame_right_ + kFrameInset);
    y_ = y_ - kRowGap + kFrameInset;
    frame.place.size = TwipSize{right_, y_ - frame.place.position.y};
    y_ = y_ + kRowGap;
    frame_.reset();
  }

  void Put(PagePart part) {
    const Twips end = part.place.position.x + part.place.size->width;
    Twips& right = frame_ ? frame_right_ : right_;
    right = std::max(right, end);
    layout_.parts.push_back(std::move(part));
  }
  Twips Left() const { return frame_ ? kFrameInset : Twips(); }

  const PageInfo& page_;
  const std::function<Twips(std::string_view)>& width_of_;
  PageLayout layout_;
  Twips column_;  // where the fields with captions begin, in a frame and out of it
  Twips y_;
  Twips right_;
  Twips frame_right_;
  std::optional<std::size_t> frame_;  // the part that is the frame around what is added
};

}  // namespace

PageLayout LayOutPage(const PageInfo& page, const std::function<Twips(std::string_view)>& width_of) {
  return Layout(page, width_of).Make();
}

}  // namespace levelwidgets

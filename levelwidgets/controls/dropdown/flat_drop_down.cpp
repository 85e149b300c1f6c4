#include <levelwidgets/controls/dropdown/flat_drop_down.h>

#include <limits>

#include <levelwidgets/controls/dropdown/list_window.h>
#include <levelwidgets/frame/edit_rows.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

namespace {

constexpr std::int16_t kDropDownWidth = 2880;

constexpr PanelEditRules kRules{
    .panel = {kWsPopup | kWsBorder, DetachOrder::kExtendedStyleParentStyle, true},
    .strip = {.has_brush = true, .pressed = &DropButton::Colors::rest, .rest_is_fill_at_once = true}};
constexpr TwipSize kBarSize{Twips(255), Twips(1200)};
constexpr std::size_t kMostItems = std::numeric_limits<std::int16_t>::max();

}  // namespace

const ClassInfo& FlatDropDown::Table() {
  using D = FlatDropDown;
  using Row = table::Row<D>;
  using Edit = table::EditRows<D>;
  // A list is always empty when it has been loaded.
  static constexpr PropertyInfo count = [] {
    PropertyInfo row = Row::ReadOnly<&D::ItemCount>(
        0, "DDListCount", "How many items there were when the control was saved; not loaded.");
    row.defaults = Always(std::int16_t{0});
    return row;
  }();
  static constexpr ClassHead head = [] {
    ClassHead written = ControlClass<D>("FlatDropDown", "An edit box with a list of texts that drops down.",
                                        {Twips(1800), Twips(315)});
    written.only_written = &count;
    return written;
  }();
  static constexpr auto data = ClassTable(
      head,
      table::JoinProperties(
          Edit::Alignment(1, std::int16_t{ksxLeft}),
          Row::Property<&D::AutoComplete, &D::SetAutoComplete>(
              2, "AutoComplete", Always(false), "Whether typing completes the text from the list."),
          Edit::Look(3), Edit::Font(6, "Font of the text and the list."), Edit::Selection(7), Edit::Text(10),
          Row::Property<&D::TopIndex, &D::SetTopIndex>(11, "TopIndex", Always(std::int16_t{1}),
                                                       "The item in the first row of the list."),
          Row::Property<&D::ListIndex, &D::SetListIndex>(12, "ListIndex", Always(std::int16_t{0}),
                                                         "The highlighted item; 0 for none.",
                                                         {.flags = MemberFlags::kPicked}),
          Edit::Strip(13, MemberFlags::kShownLater),
          Row::Property<&D::DropDownWidth, &D::SetDropDownWidth>(16, "DropDownWidth", Always(kDropDownWidth),
                                                                 "Width of the list, twips."),
          Row::Property<&D::Style, &D::SetStyle>(
              17, "Style", Always(0), "0 with an edit box; otherwise only the list changes the text."),
          Edit::Handle(18)),
      table::Persisted("Alignment", "AutoComplete", "BackColor", "ForeColor", "Enabled", "Font", "Text",
                       "TopIndex", "ListIndex", "DropDownBackColor", "DropDownBackColorMouseOver",
                       "DropDownBackColorPushed", "DropDownWidth", "Style"),
      table::Methods(
          Row::Method<&D::AddItem>(19, "AddItem", "Description", "Adds a text at the end of the list."),
          Row::Method<&D::RemoveItem>(20, "RemoveItem", "Index", "Removes an item of the list."),
          Row::Method<&D::Clear>(21, "Clear", "", "Removes all items.")),
      Edit::Events(1,
                   {.key_press = "A character was typed; raised before and after the control's own part."}));
  static constexpr ClassInfo info(data);
  return info;
}

FlatDropDown::FlatDropDown(std::shared_ptr<ControlSite> site)
    : PanelEditControl(std::move(site), kRules),
      picPopup_(NeedPanel()),
      fsMain_(picPopup_, "fsMain", kBarSize) {
  RelayExceptCharacters(Edit());
  Edit().KeyPress += [this](std::int16_t& key_ascii) { TypeCharacter(key_ascii); };
  PrepareList();
}

void FlatDropDown::PrepareList() {
  picPopup_.Move({}, {Twips(kDropDownWidth), Twips(1200)});
  picPopup_.SetBackColor(kWindowBack);
  picPopup_.Paint += [this] { PaintList(); };
  picPopup_.Resize += [this] { PlaceBar(); };
  picPopup_.MouseDown += [this](std::int16_t, std::int16_t, Twips x, Twips y) { PressList({x, y}); };
  picPopup_.MouseMove += [this](std::int16_t, std::int16_t, Twips x, Twips y) { HighlightUnder({x, y}); };
  picPopup_.Wheel += [this](int notches) { ScrollRows(-notches * kRowsPerNotch); };
  // As the strip's arrow: its buttons are as light as the strip, whatever the colour of the desktop's texts.
  fsMain_->SetForeColor(Color(0));
  fsMain_->SetLargeChange(kListRows - 1);
  fsMain_->Change += [this] {
    top_index_ = static_cast<std::int16_t>(fsMain_->Value());
    if (picPopup_.IsOpen()) picPopup_.Refresh();
  };
}

// --- Properties --------------------------------------------------------------------------------------

void FlatDropDown::SetAlignment(std::int16_t alignment) {
  AssignAlignment(static_cast<ksxAlignmentConstants>(alignment));
}

void FlatDropDown::SetAutoComplete(bool complete) {
  Store("AutoComplete", Then::kNotify, auto_complete_, complete);
}

// The surface has the look of the text without an edit box.
void FlatDropDown::LookChanged() {
  Surface& surface = GetSurface();
  if (surface.GetFont() != GetFont()) surface.SetFont(GetFont());
  if (!HasEdit()) surface.SetBackColor(BackColor());
}

void FlatDropDown::SetText(std::string_view text) {
  Assign("Text", Then::kNotify, [&] { Edit().SetText(text); });
}

// While the properties are read, there are no items yet: both places are only stored.
void FlatDropDown::SetTopIndex(std::int16_t index) {
  top_index_ = index;
  if (!Started()) return;
  Assign("TopIndex", Then::kNotify, [&] {
    try {
      fsMain_->SetValue(index);
    } catch (const Error&) {
      // The bar stays where it is. An open list shows what it is to show all the same.
      picPopup_.Invalidate();
    }
  });
}

void FlatDropDown::SetListIndex(std::int16_t index) {
  if (index == list_index_) return;
  if (!Started()) {
    list_index_ = index;
    return;
  }
  const auto keep = Reference();
  list_index_ = HighlightFor(index, Count());
  if (const auto top = FirstRowFor(list_index_, top_index_)) SetTopIndex(*top);
  if (picPopup_.IsOpen()) picPopup_.Refresh();
  PropertyChanged("ListIndex");
}

void FlatDropDown::SetDropDownWidth(std::int16_t width) {
  Store("DropDownWidth", Then::kNotify, drop_down_width_, width);
}

void FlatDropDown::SetStyle(std::int32_t style) {
  Assign("Style", HasEdit() && style == 0 ? Then::kNotify : Then::kRepaintThenNotify, [&] {
    style_ = style;
    Edit().SetVisible(HasEdit());
    LookChanged();
    // What is typed goes to the edit box that has come.
    if (HasEdit() && GetSurface().Windows().GetFocus() == hWnd()) Edit().SetFocus();
  });
}

// --- Methods -----------------------------------------------------------------------------------------

Variant FlatDropDown::AddItem(std::string& description) {
  if (items_.size() == kMostItems) {
    throw Error(kOverflow, Class().QualifiedName(), "A list has at most 32767 items");
  }
  const auto keep = Reference();
  items_.push_back(description);
  SyncListScroll();
  return {};
}

Variant FlatDropDown::RemoveItem(std::int16_t& index) {
  Item(index);
  const auto keep = Reference();
  items_.erase(items_.begin() + index - 1);
  SyncListScroll();
  return {};
}

Variant FlatDropDown::Clear() {
  const auto keep = Reference();
  items_.clear();
  SyncListScroll();
  return {};
}

const std::string& FlatDropDown::Item(std::int32_t index) const {
  if (index < 1 || index > Count()) throw Error(kSubscriptOutOfRange);
  return items_[static_cast<std::size_t>(index) - 1];
}

// --- Notifications -----------------------------------------------------------------------------------

void FlatDropDown::OnEditChange() {
  const auto keep = Reference();
  if (!HasEdit()) OnPaint();
  PropertyChanged("Text");
  Change.Raise();
}

// Without an edit box the control itself has the focus.
WindowHandle FlatDropDown::FocusWindow() const { return HasEdit() ? Edit().hWnd() : hWnd(); }

}  // namespace levelwidgets

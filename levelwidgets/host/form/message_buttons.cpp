#include <levelwidgets/host/form/message_buttons.h>

#include <algorithm>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {

namespace {

constexpr std::int32_t kCancelId = 2;
constexpr ButtonSet::Button kOk{"OK", 1}, kCancel{"Cancel", kCancelId}, kYes{"&Yes", 6}, kNo{"&No", 7};

constexpr ButtonSet::Button kOnlyOk[] = {kOk};
constexpr ButtonSet::Button kOkOrCancel[] = {kOk, kCancel};
constexpr ButtonSet::Button kYesNoOrCancel[] = {kYes, kNo, kCancel};
constexpr ButtonSet::Button kYesOrNo[] = {kYes, kNo};

constexpr ButtonSet kSets[] = {{MessageButtons::kOk, "OK", kOnlyOk},
                               {MessageButtons::kOkCancel, "OKCancel", kOkOrCancel},
                               {MessageButtons::kYesNoCancel, "YesNoCancel", kYesNoOrCancel},
                               {MessageButtons::kYesNo, "YesNo", kYesOrNo}};

// As it is read: "&" marks the access key, "&&" is one "&".
std::string Shown(std::string_view caption) {
  std::string shown;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    shown += caption[i];
  }
  return shown;
}

template <typename Value, typename Projection>
const ButtonSet& SetWhose(Projection projection, const Value& value) {
  const auto found = std::ranges::find(kSets, value, projection);
  if (found != std::end(kSets)) return *found;
  throw Error(kInvalidCall, "LevelWidgets.Message",
              "A message's buttons are a list of captions, or OK (0), OKCancel (1), YesNoCancel (3) or "
              "YesNo (4)");
}

}  // namespace

std::int32_t ButtonSet::NumberOf(std::int32_t id) const {
  const auto found = std::ranges::find(buttons, id, &Button::id);
  if (found != buttons.end()) return static_cast<std::int32_t>(found - buttons.begin()) + 1;
  // Where OK is alone, some systems call it Cancel when Escape has pressed it.
  return id == kCancelId && buttons.size() == 1 ? 1 : 0;
}

std::int32_t ButtonSet::WayOut() const { return NumberOf(kCancelId); }

std::vector<std::string> ButtonSet::Captions() const {
  std::vector<std::string> captions;
  for (const Button& button : buttons) captions.emplace_back(button.caption);
  return captions;
}

const ButtonSet& SetOf(MessageButtons buttons) { return SetWhose(&ButtonSet::buttons_of, buttons); }

const ButtonSet& SetNamed(std::string_view name) { return SetWhose(&ButtonSet::name, name); }

const ButtonSet* SetWithCaptions(const std::vector<std::string>& captions) {
  const auto found = std::ranges::find_if(kSets, [&](const ButtonSet& set) {
    return std::ranges::equal(captions, set.buttons, {}, Shown,
                              [](const ButtonSet::Button& button) { return Shown(button.caption); });
  });
  return found == std::end(kSets) ? nullptr : found;
}

}  // namespace levelwidgets

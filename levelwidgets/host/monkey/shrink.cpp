#include <levelwidgets/host/monkey/run.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::monkey {

namespace {

std::vector<Event> Without(const std::vector<Event>& events, std::size_t begin, std::size_t end) {
  std::vector<Event> rest(events.begin(), events.begin() + static_cast<std::ptrdiff_t>(begin));
  rest.insert(rest.end(), events.begin() + static_cast<std::ptrdiff_t>(end), events.end());
  return rest;
}

// The first character boundary of the UTF-8 text from `at` on.
std::size_t Boundary(std::string_view text, std::size_t at) {
  while (at < text.size() && text::IsContinuation(text[at])) ++at;
  return at;
}

// Leaves out pieces of a text as Shrink does of events.
template <typename Breaks>
std::string ShortenText(std::string text, Breaks breaks) {
  for (std::size_t length = text.size(); length > 0; length /= 2) {
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t end = Boundary(text, std::min(text.size(), begin + length));
      std::string shorter = text.substr(0, begin) + text.substr(end);
      if (breaks(shorter)) {
        text = std::move(shorter);
      } else {
        begin = end;
      }
    }
  }
  return text;
}

}  // namespace

std::vector<Event> ShortenTexts(std::vector<Event> events,
                                const std::function<bool(const std::vector<Event>&)>& breaks) {
  for (std::size_t i = 0; i < events.size(); ++i) {
    for (std::size_t place = 0; place < events[i].values.size(); ++place) {
      const Variant value = events[i].values[place];
      if (value.Type() != VariantType::kString) continue;
      const std::string text =
          ShortenText(std::get<std::string>(value.Get()), [&](const std::string& shorter) {
            std::vector<Event> changed = events;
            changed[i].values[place] = Variant(shorter);
            return breaks(changed);
          });
      events[i].values[place] = Variant(text);
    }
  }
  return events;
}

// Leaves out pieces, from large to single events, as long as that helps.
std::vector<Event> Shrink(std::vector<Event> events,
                          const std::function<bool(const std::vector<Event>&)>& breaks) {
  std::size_t length = std::max<std::size_t>(1, events.size() / 2);
  while (!events.empty()) {
    bool helped = false;
    // From the end: what came early is often what the rest needs.
    for (std::size_t end = events.size(); end > 0;) {
      const std::size_t begin = end > length ? end - length : 0;
      std::vector<Event> fewer = Without(events, begin, end);
      if (breaks(fewer)) {
        events = std::move(fewer);
        helped = true;
      }
      end = begin;
    }
    if (length == 1 && !helped) break;
    if (length > 1) length = (length + 1) / 2;
  }
  return events;
}

}  // namespace levelwidgets::monkey

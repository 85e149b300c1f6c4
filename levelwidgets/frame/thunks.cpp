#include <levelwidgets/frame/thunks.h>

namespace levelwidgets::table {

template struct EventRow<>;
template struct EventRow<std::int16_t&>;
template struct EventRow<std::int16_t, std::int16_t>;
template struct EventRow<std::int16_t&, std::int16_t&>;
template struct EventRow<std::int16_t, std::int16_t, Twips, Twips>;
template struct EventRow<std::int16_t&, std::int16_t&, Twips&, Twips&>;

}  // namespace levelwidgets::table

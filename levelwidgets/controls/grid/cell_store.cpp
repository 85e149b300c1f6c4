#include <levelwidgets/controls/grid/cell_store.h>

#include <limits>
#include <memory>
#include <new>
#include <utility>

#include <levelwidgets/controls/grid/stored_text.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/out_of_memory.h>

namespace levelwidgets {

namespace {

// The list of chunks of 2,147,483,647 rows takes 8 MB.
constexpr std::size_t kRowsInChunk = 2048;

// A new text until a cell takes it.
class TextForCell {
 public:
  TextForCell(std::string_view text, std::pmr::memory_resource& memory)
      : memory_(memory), text_(text, memory) {}
  TextForCell(const TextForCell&) = delete;
  TextForCell& operator=(const TextForCell&) = delete;
  ~TextForCell() { text_.Free(memory_); }

  StoredText Take() { return std::exchange(text_, StoredText()); }

 private:
  std::pmr::memory_resource& memory_;
  StoredText text_;
};

}  // namespace

// The cells stand behind it.
struct CellStore::Row {
  std::uint32_t filled = 0;     // cells that are not empty
  std::uint32_t elsewhere = 0;  // texts that have to be freed

  StoredText* Cells() { return reinterpret_cast<StoredText*>(this + 1); }
  void Count(const StoredText& text, std::uint32_t times) {
    if (!text.IsEmpty()) filled += times;
    if (text.IsElsewhere()) elsewhere += times;
  }
};

struct CellStore::Chunk {
  Row* rows[kRowsInChunk] = {};
};

CellStore::CellStore(std::pmr::memory_resource& memory) : memory_(memory), chunks_(&memory) {}

CellStore::~CellStore() { FreeFrom(0); }

void CellStore::Recreate(std::int32_t row_count, std::int32_t column_count) {
  FreeFrom(0);
  row_count_ = row_count;
  column_count_ = column_count;
}

void CellStore::Resize(std::int32_t row_count, std::int32_t column_count) {
  if (column_count != column_count_ || row_count < 1) {
    Recreate(row_count, column_count);
  } else {
    FreeFrom(static_cast<std::size_t>(row_count));
    row_count_ = row_count;
  }
}

// --- Texts -----------------------------------------------------------------------------------------------

void CellStore::Check(std::int32_t row, std::int32_t column) const {
  if (row < 1 || row > row_count_) RaiseControlError(kInvalidRowCode, "FlatGrid", "Invalid Row");
  if (column < 1 || column > column_count_) {
    RaiseControlError(kInvalidColumnCode, "FlatGrid", "Invalid Column");
  }
}

std::string_view CellStore::Text(std::int32_t row, std::int32_t column) const {
  Check(row, column);
  Row* const found = Find(static_cast<std::size_t>(row) - 1);
  return found ? found->Cells()[column - 1].View() : std::string_view();
}

void CellStore::SetText(std::int32_t row, std::int32_t column, std::string_view text) {
  Check(row, column);
  OrOutOfMemory(
      [&] { Write(static_cast<std::size_t>(row) - 1, static_cast<std::size_t>(column) - 1, text); });
}

// All that can fail comes first.
void CellStore::Write(std::size_t row, std::size_t column, std::string_view text) {
  Row* found = Find(row);
  if (!found && text.empty()) return;
  TextForCell fresh(text, memory_);
  if (!found) found = &Make(row);
  StoredText& cell = found->Cells()[column];
  found->Count(cell, static_cast<std::uint32_t>(-1));
  cell.Free(memory_);
  cell = fresh.Take();
  found->Count(cell, 1);
  if (found->filled == 0) Free(chunks_[row / kRowsInChunk]->rows[row % kRowsInChunk]);
}

// --- Rows ------------------------------------------------------------------------------------------------

std::size_t CellStore::RowBytes() const {
  const std::uint64_t bytes =
      sizeof(Row) + std::uint64_t{sizeof(StoredText)} * static_cast<std::uint32_t>(column_count_);
  if (bytes > std::numeric_limits<std::size_t>::max() / 2) throw std::bad_alloc();
  return static_cast<std::size_t>(bytes);
}

CellStore::Row* CellStore::Find(std::size_t row) const {
  const std::size_t chunk = row / kRowsInChunk;
  if (chunk >= chunks_.size() || !chunks_[chunk]) return nullptr;
  return chunks_[chunk]->rows[row % kRowsInChunk];
}

CellStore::Row& CellStore::Make(std::size_t row) {
  const std::size_t index = row / kRowsInChunk;
  if (index >= chunks_.size()) chunks_.resize(index + 1);
  Chunk*& chunk = chunks_[index];
  if (!chunk) chunk = new (memory_.allocate(sizeof(Chunk), alignof(Chunk))) Chunk();
  Row* const made = new (memory_.allocate(RowBytes(), alignof(StoredText))) Row();
  std::uninitialized_value_construct_n(made->Cells(), column_count_);
  return *(chunk->rows[row % kRowsInChunk] = made);
}

void CellStore::Free(Row*& row) {
  Row* const freed = std::exchange(row, nullptr);
  if (!freed) return;
  for (StoredText* cell = freed->Cells(); freed->elsewhere > 0; ++cell) {
    if (!cell->IsElsewhere()) continue;
    cell->Free(memory_);
    --freed->elsewhere;
  }
  memory_.deallocate(freed, RowBytes(), alignof(StoredText));
}

void CellStore::Free(Chunk*& chunk) {
  Chunk* const freed = std::exchange(chunk, nullptr);
  if (!freed) return;
  for (Row*& row : freed->rows) Free(row);
  memory_.deallocate(freed, sizeof(Chunk), alignof(Chunk));
}

void CellStore::FreeFrom(std::size_t row) {
  const std::size_t whole = (row + kRowsInChunk - 1) / kRowsInChunk;  // chunks that remain
  for (std::size_t i = whole; i < chunks_.size(); ++i) Free(chunks_[i]);
  if (whole < chunks_.size()) {
    chunks_.resize(whole);
    chunks_.shrink_to_fit();
  }
  if (row / kRowsInChunk >= chunks_.size() || !chunks_[row / kRowsInChunk]) return;
  Chunk& last = *chunks_[row / kRowsInChunk];
  for (std::size_t i = row % kRowsInChunk; i < kRowsInChunk; ++i) Free(last.rows[i]);
}

}  // namespace levelwidgets

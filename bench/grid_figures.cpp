// What the cells of grids take.
#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>

#include <bench/figures.h>
#include <levelwidgets/controls/grid/cell_store.h>

namespace levelwidgets::bench {

namespace {

constexpr std::int32_t kRows = 1'000'000;
constexpr std::int32_t kColumns = 8;
constexpr double kCells = double{kRows} * kColumns;
constexpr double kNano = 1e9;
constexpr std::string_view kText = "12345678";
using CellBytes = std::array<char, 16>;
constexpr int kRuns = 5;

// The compiler has to take `memory` for used.
void Use(const void* memory) { asm volatile("" : : "g"(memory) : "memory"); }

void Fill(CellStore& store) {
  for (std::int32_t row = 1; row <= kRows; ++row) {
    for (std::int32_t column = 1; column <= kColumns; ++column) store.SetText(row, column, kText);
  }
}

// The texts one behind the other in memory that nobody has used: seconds for one of them.
double FreshCopyTime() {
  const auto count = static_cast<std::size_t>(kCells);
  const std::unique_ptr<CellBytes[]> cells(new CellBytes[count]);
  const auto start = Clock::now();
  for (std::size_t i = 0; i < count; ++i) {
    std::memcpy(cells[i].data(), kText.data(), kText.size());
    Use(cells[i].data());
  }
  return SecondsSince(start) / kCells;
}

// The same, where they are: seconds for one that is read.
double ReadTime() {
  const auto count = static_cast<std::size_t>(kCells);
  const std::unique_ptr<CellBytes[]> cells(new CellBytes[count]());
  CellBytes cell;
  const auto start = Clock::now();
  for (std::size_t i = 0; i < count; ++i) {
    std::memcpy(cell.data(), cells[i].data(), kText.size());
    Use(cell.data());
  }
  return SecondsSince(start) / kCells;
}

Samples MeasureWriting(CellStore& store) {
  Samples writing;
  for (int run = 0; run < kRuns; ++run) {
    store.Recreate(kRows, kColumns);
    const auto start = Clock::now();
    Fill(store);
    writing.Add(SecondsSince(start) / kCells);
  }
  return writing;
}

Samples MeasureReading(const CellStore& store) {
  Samples reading;
  CellBytes cell;
  for (int run = 0; run < kRuns; ++run) {
    const auto start = Clock::now();
    for (std::int32_t row = 1; row <= kRows; ++row) {
      for (std::int32_t column = 1; column <= kColumns; ++column) {
        const std::string_view text = store.Text(row, column);
        if (text.size() != kText.size()) throw std::logic_error("a cell has lost its text");
        std::memcpy(cell.data(), text.data(), kText.size());
        Use(cell.data());
      }
    }
    reading.Add(SecondsSince(start) / kCells);
  }
  return reading;
}

}  // namespace

void MeasureGrids(std::vector<Figure>& figures) {
  const double heap = HeapBytes();
  CellStore store;
  store.Recreate(std::numeric_limits<std::int32_t>::max(), kColumns);
  store.SetText(std::numeric_limits<std::int32_t>::max(), kColumns, kText);
  figures.push_back(LowerIsBetter("Grid of 2,147,483,647 rows, the last one written: heap", "MB",
                                  One(HeapBytes() - heap), kMega, "the text", 8 * kMega, 16));
  figures.push_back(LowerIsBetter("Grid cell written, in a grid of 1,000,000 by 8", "ns",
                                  MeasureWriting(store), kNano, "copy of the text to fresh memory",
                                  FreshCopyTime() * kNano, 25));
  figures.push_back(LowerIsBetter("Grid cell read, in a grid of 1,000,000 by 8", "ns", MeasureReading(store),
                                  kNano, "copy of the text", ReadTime() * kNano, 5));
  figures.push_back(LowerIsBetter("Grid cell of 8 characters: bytes", "bytes",
                                  One((HeapBytes() - heap) / kCells), 1, "a cell", sizeof(CellBytes), 24));
  const auto start = Clock::now();
  store.Resize(0, kColumns);
  store.Resize(kRows, kColumns);
  figures.push_back(LowerIsBetter("1,000,000 written rows taken away and back, empty", "ms",
                                  One(SecondsSince(start)), kMilli, "reading of each cell",
                                  ReadTime() * kCells * kMilli, 100));
}

}  // namespace levelwidgets::bench

#include <levelwidgets/controls/grid/cell_store.h>

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <map>
#include <random>
#include <string>

#include <levelwidgets/controls/grid/counting_memory_fixture.h>
#include <levelwidgets/frame/out_of_memory.h>
#include <levelwidgets/testing/error_of.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets {
namespace {

constexpr std::int32_t kMostRows = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kInvalidRow = ObjectErrorNumber(kInvalidRowCode);
constexpr std::int32_t kInvalidColumn = ObjectErrorNumber(kInvalidColumnCode);
constexpr std::size_t kMegabyte = std::size_t{1} << 20;

class CellStoreTest : public ::testing::Test {
 protected:
  CountingMemory memory_;
  CellStore store_{memory_};
};

TEST_F(CellStoreTest, ANewStoreHasOneCellAndNoneThatCanBeAddressed) {
  EXPECT_EQ(store_.Rows(), 1);
  EXPECT_EQ(store_.Columns(), 1);
  EXPECT_EQ(ErrorOf([&] { store_.Text(1, 1); }), kInvalidRow);
}

TEST_F(CellStoreTest, WithoutRowsOrColumnsItIsOneByOne) {
  const struct {
    std::int32_t row_count;
    std::int32_t column_count;
    std::int32_t rows;
    std::int32_t columns;
  } cases[] = {{0, 2, 1, 1}, {2, 0, 1, 1}, {0, 0, 1, 1}, {-5, 3, 1, 1}, {3, -5, 1, 1}, {3, 2, 3, 2}};
  for (const auto& c : cases) {
    store_.Recreate(c.row_count, c.column_count);
    EXPECT_EQ(store_.Rows(), c.rows) << c.row_count;
    EXPECT_EQ(store_.Columns(), c.columns) << c.column_count;
  }
}

TEST_F(CellStoreTest, KeepsTextsOfEveryLength) {
  store_.Recreate(3, 2);
  for (const std::size_t length : {0u, 1u, 7u, 8u, 14u, 15u, 16u, 17u, 255u, 256u, 70000u}) {
    const std::string text(length, 'x');
    store_.SetText(2, 1, text);
    store_.SetText(3, 2, text + "!");
    EXPECT_EQ(store_.Text(2, 1), text) << length;
    EXPECT_EQ(store_.Text(3, 2), text + "!") << length;
    EXPECT_EQ(store_.Text(2, 2), "") << length;
    EXPECT_EQ(store_.Text(1, 1), "") << length;
  }
}

TEST_F(CellStoreTest, KeepsBytesOfAnyValue) {
  store_.Recreate(1, 2);
  const std::string zeros(15, '\0');
  const std::string ones(15, '\xFF');
  store_.SetText(1, 1, zeros);
  store_.SetText(1, 2, ones);
  EXPECT_EQ(store_.Text(1, 1), zeros);
  EXPECT_EQ(store_.Text(1, 2), ones);
}

TEST_F(CellStoreTest, ATextMayBeOneOfItsOwn) {
  store_.Recreate(2, 2);
  store_.SetText(1, 1, "a text that is longer than fifteen bytes");
  store_.SetText(1, 1, store_.Text(1, 1).substr(7));
  EXPECT_EQ(store_.Text(1, 1), "that is longer than fifteen bytes");
  store_.SetText(2, 2, store_.Text(1, 1));
  EXPECT_EQ(store_.Text(2, 2), "that is longer than fifteen bytes");
  store_.SetText(1, 1, store_.Text(1, 1).substr(0, 4));
  EXPECT_EQ(store_.Text(1, 1), "that");
  store_.SetText(1, 1, store_.Text(1, 1).substr(1));
  EXPECT_EQ(store_.Text(1, 1), "hat");
}

// --- Order of the checks -------------------------------------------------------------------------

TEST_F(CellStoreTest, TheRowIsCheckedBeforeTheColumnWhenReadAndWhenWritten) {
  store_.Recreate(3, 2);
  const struct {
    std::int32_t row;
    std::int32_t column;
    std::int32_t error;
  } cases[] = {{0, 1, kInvalidRow},
               {4, 1, kInvalidRow},
               {-1, 1, kInvalidRow},
               {std::numeric_limits<std::int32_t>::min(), 1, kInvalidRow},
               {kMostRows, 1, kInvalidRow},
               {1, 0, kInvalidColumn},
               {1, 3, kInvalidColumn},
               {3, -1, kInvalidColumn},
               {0, 0, kInvalidRow},
               {4, 3, kInvalidRow},
               {1, 1, 0},
               {3, 2, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(ErrorOf([&] { store_.Text(c.row, c.column); }), c.error) << c.row << " " << c.column;
    EXPECT_EQ(ErrorOf([&] { store_.SetText(c.row, c.column, "x"); }), c.error) << c.row << " " << c.column;
  }
}

TEST_F(CellStoreTest, WithoutColumnsARowThatExistsIsAnInvalidColumn) {
  store_.Recreate(3, 0);
  EXPECT_EQ(ErrorOf([&] { store_.Text(1, 1); }), kInvalidColumn);
  EXPECT_EQ(ErrorOf([&] { store_.Text(4, 1); }), kInvalidRow);
}

TEST_F(CellStoreTest, ErrorsNameTheGridAndWhatIsWrong) {
  store_.Recreate(1, 1);
  try {
    store_.Text(2, 1);
    FAIL() << "row 2 of 1";
  } catch (const Error& error) {
    EXPECT_EQ(error.Source(), "LevelWidgets.FlatGrid");
    EXPECT_EQ(error.Description(), "Invalid Row");
  }
  try {
    store_.SetText(1, 2, "x");
    FAIL() << "column 2 of 1";
  } catch (const Error& error) {
    EXPECT_EQ(error.Source(), "LevelWidgets.FlatGrid");
    EXPECT_EQ(error.Description(), "Invalid Column");
  }
}

// --- Number of rows --------------------------------------------------------------------------------

TEST_F(CellStoreTest, ResizingKeepsTheRowsThatRemain) {
  store_.Recreate(5000, 2);
  for (const std::int32_t row : {1, 2047, 2048, 2049, 4096, 4097, 5000}) {
    store_.SetText(row, 2, "row " + std::to_string(row) + std::string(20, '.'));
  }
  store_.Resize(4096, 2);
  EXPECT_EQ(store_.Rows(), 4096);
  for (const std::int32_t row : {1, 2047, 2048, 2049, 4096}) {
    EXPECT_EQ(store_.Text(row, 2), "row " + std::to_string(row) + std::string(20, '.'));
  }
  store_.Resize(2048, 2);
  store_.Resize(5000, 2);
  EXPECT_EQ(store_.Text(2048, 2).substr(0, 8), "row 2048");
  for (const std::int32_t row : {2049, 4096, 4097, 5000}) EXPECT_EQ(store_.Text(row, 2), "") << row;
}

TEST_F(CellStoreTest, RowsTakenAwayComeBackEmptyAlsoWithinTheFirstOnes) {
  store_.Recreate(3, 1);
  for (std::int32_t row = 1; row <= 3; ++row) store_.SetText(row, 1, "text");
  store_.Resize(2, 1);
  store_.Resize(3, 1);
  EXPECT_EQ(store_.Text(2, 1), "text");
  EXPECT_EQ(store_.Text(3, 1), "");
}

TEST_F(CellStoreTest, WithoutRowsAndWithOtherColumnsAllCellsAreEmpty) {
  store_.Recreate(2, 2);
  store_.SetText(1, 1, "a");
  store_.Resize(0, 2);
  store_.Resize(2, 2);
  EXPECT_EQ(store_.Text(1, 1), "");
  store_.SetText(1, 1, "a");
  store_.Resize(2, 3);
  EXPECT_EQ(store_.Text(1, 1), "");
  EXPECT_EQ(store_.Columns(), 3);
  store_.SetText(1, 1, "a");
  store_.Recreate(2, 3);
  EXPECT_EQ(store_.Text(1, 1), "");
}

TEST_F(CellStoreTest, AMillionRowsComeAndGoAtOnce) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 1000; ++i) {
    store_.Resize(1000000, 8);
    store_.SetText(1000000, 8, "the last one");
    store_.Resize(0, 8);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

// --- Memory ----------------------------------------------------------------------------------------

TEST_F(CellStoreTest, TwoThousandMillionEmptyRowsTakeLessThan16Megabytes) {
  store_.Recreate(kMostRows, 8);
  EXPECT_EQ(memory_.InUse(), 0u);
  for (const std::int32_t row : {1, 1000000000, kMostRows}) {
    store_.SetText(row, 8, "text");
    EXPECT_EQ(store_.Text(row, 8), "text");
    EXPECT_LT(memory_.InUse(), 16 * kMegabyte);
  }
  store_.Resize(1000000000, 8);
  EXPECT_EQ(store_.Text(1000000000, 8), "text");
  store_.Resize(1, 8);
  EXPECT_LT(memory_.InUse(), 64u * 1024);
}

TEST_F(CellStoreTest, ACellOfEightCharactersTakesAbout24BytesWithItsShareOfTheRow) {
  constexpr std::int32_t kRows = 100000;
  constexpr std::int32_t kColumns = 8;
  store_.Recreate(kRows, kColumns);
  for (std::int32_t row = 1; row <= kRows; ++row) {
    for (std::int32_t column = 1; column <= kColumns; ++column) store_.SetText(row, column, "12345678");
  }
  constexpr std::size_t kHeapsOwn = 16;  // bytes a block, and there is one a row
  EXPECT_LE((memory_.InUse() + kRows * kHeapsOwn) / (kRows * kColumns), 21u);
}

TEST_F(CellStoreTest, ARowThatIsEmptyAgainTakesNoMemory) {
  store_.Recreate(10, 3);
  store_.SetText(1, 1, "kept");
  const std::size_t before = memory_.InUse();
  store_.SetText(2, 1, "");
  EXPECT_EQ(memory_.InUse(), before) << "an empty text in an empty row";
  store_.SetText(2, 1, "short");
  store_.SetText(2, 3, "a text that is longer than fifteen bytes");
  EXPECT_GT(memory_.InUse(), before);
  store_.SetText(2, 1, "");
  EXPECT_EQ(store_.Text(2, 3), "a text that is longer than fifteen bytes");
  store_.SetText(2, 3, "");
  EXPECT_EQ(memory_.InUse(), before);
  EXPECT_EQ(store_.Text(1, 1), "kept");
}

TEST(CellStoreMemory, AllIsGivenBack) {
  CountingMemory memory;
  {
    CellStore store(memory);
    store.Recreate(10000, 3);
    for (std::int32_t row = 1; row <= 10000; row += 7) {
      store.SetText(row, row % 3 + 1, std::string(static_cast<std::size_t>(row % 40), 'x'));
      store.SetText(row, 1, "a text that is longer than fifteen bytes");
    }
    store.Resize(5000, 3);
    EXPECT_GT(memory.InUse(), 0u);
    store.Resize(0, 3);
    EXPECT_EQ(memory.InUse(), 0u);
    store.Recreate(5, 5);
    store.SetText(5, 5, "a text that is longer than fifteen bytes");
  }
  EXPECT_EQ(memory.InUse(), 0u);
}

// --- Out of memory ---------------------------------------------------------------------------------

TEST_F(CellStoreTest, WhenMemoryRunsOutTheWriteRaises7AndEveryCellKeepsWhatItHad) {
  const std::string long_text = "a text that is longer than fifteen bytes";
  store_.Recreate(1000000, 2);
  store_.SetText(1, 1, "short");
  store_.SetText(1, 2, long_text);
  const struct {
    std::int32_t row;
    std::int32_t column;
    std::string before;
    std::string text;
    int allocations;
  } cases[] = {
      {1, 1, "short", long_text + "!", 1},    // the text
      {1, 2, long_text, long_text + "!", 1},  // the text
      {2, 1, "", "x", 1},                     // the row
      {3, 1, "", long_text, 2},               // both
      {999999, 2, "", long_text, 4},          // the list of chunks and the chunk, too
  };
  for (const auto& c : cases) {
    for (int allocations = 0; allocations < c.allocations; ++allocations) {
      // What an attempt has prepared makes the next one shorter, so each starts anew.
      store_.Resize(1, 2);
      store_.Resize(1000000, 2);
      memory_.FailAfter(allocations);
      EXPECT_EQ(ErrorOf([&] { store_.SetText(c.row, c.column, c.text); }), kOutOfMemory)
          << c.row << " after " << allocations;
      memory_.FailNever();
      EXPECT_EQ(store_.Text(c.row, c.column), c.before);
      EXPECT_EQ(store_.Text(1, 1), "short");
      EXPECT_EQ(store_.Text(1, 2), long_text);
    }
    store_.Resize(1, 2);
    store_.Resize(1000000, 2);
    memory_.FailAfter(c.allocations);
    store_.SetText(c.row, c.column, c.text);
    memory_.FailNever();
    EXPECT_EQ(store_.Text(c.row, c.column), c.text);
    store_.SetText(c.row, c.column, c.before);
  }
}

TEST_F(CellStoreTest, ShorterTextsAndNumbersOfRowsNeedNoMemory) {
  store_.Recreate(5000, 2);
  store_.SetText(5000, 1, "a text that is longer than fifteen bytes");
  store_.SetText(1, 1, "a text that is longer than fifteen bytes");
  memory_.FailAfter(0);
  store_.SetText(1, 1, "fifteen bytes..");
  EXPECT_EQ(store_.Text(1, 1), "fifteen bytes..");
  store_.SetText(1, 2, "short");
  store_.SetText(2, 1, "");  // a row that is empty already
  store_.Resize(3000, 2);
  store_.Resize(kMostRows, 2);
  EXPECT_EQ(store_.Text(1, 2), "short");
  EXPECT_EQ(store_.Text(5000, 1), "");
}

TEST_F(CellStoreTest, MoreColumnsThanMemoryCanHoldRaise7) {
  store_.Recreate(1, kMostRows);
  memory_.FailAfter(2);  // the list of chunks and a chunk; no test takes the 32 GB of such a row
  EXPECT_EQ(ErrorOf([&] { store_.SetText(1, kMostRows, "x"); }), kOutOfMemory);
  EXPECT_EQ(store_.Text(1, kMostRows), "");
}

// --- Against a map ---------------------------------------------------------------------------------

TEST_F(CellStoreTest, DoesWhatAMapDoesOverAMillionRandomSteps) {
  std::mt19937 random(17);
  const auto up_to = [&](std::uint32_t most) { return static_cast<std::int32_t>(random() % (most + 1)); };
  std::map<std::pair<std::int32_t, std::int32_t>, std::string> texts;
  std::int32_t rows = 6000;
  std::int32_t columns = 3;
  store_.Recreate(rows, columns);
  for (int step = 0; step < testing::Rounds(1'000'000); ++step) {
    const int what = up_to(9999);
    if (what == 0) {
      rows = up_to(6000);
      const std::int32_t columns_before = columns;
      if (up_to(4) == 0) columns = up_to(4);
      store_.Resize(rows, columns);
      if (columns != columns_before) texts.clear();
      texts.erase(texts.lower_bound({rows + 1, 0}), texts.end());
    } else if (rows > 0 && columns > 0) {
      const std::pair cell(1 + up_to(static_cast<std::uint32_t>(rows) - 1),
                           1 + up_to(static_cast<std::uint32_t>(columns) - 1));
      const std::string text(static_cast<std::size_t>(up_to(1) * up_to(30)),
                             static_cast<char>('a' + step % 26));
      const auto known = texts.find(cell);
      ASSERT_EQ(store_.Text(cell.first, cell.second), known == texts.end() ? "" : known->second) << step;
      store_.SetText(cell.first, cell.second, text);
      texts[cell] = text;
    }
  }
}

}  // namespace
}  // namespace levelwidgets

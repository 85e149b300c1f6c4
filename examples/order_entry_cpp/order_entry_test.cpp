#include "order_entry.h"

#include <levelwidgets/testing/desktop_fixture.h>

#include <filesystem>
#include <fstream>

class OrderEntryTest : public levelwidgets::testing::DesktopTest {
 protected:
  static constexpr std::int16_t kEnter = 13, kEscape = 27, kEdit = 113;

  OrderEntry& Order() {
    if (!order_) {
      order_ = std::make_unique<OrderEntry>(Driver().GetPlatform());
      order_->form->Show();
      order_->form->Find("grdLines")->SetFocus();
    }
    return *order_;
  }
  // Opens the editor of a cell, types and presses Enter; Escape gives up what was refused.
  void TypeInto(int row, int column, const std::string& text) {
    Order().lines.SetRowIndex(row);
    while (column_ != column) {
      Driver().Key(39);  // to the right, and from the last column to the first
      column_ = column_ % OrderEntry::kWanted + 1;
    }
    Driver().Key(kEdit);
    Driver().Type(text);
    Driver().Key(kEnter);
    if (!Order().state.Caption().empty()) Driver().Key(kEscape);
  }
  std::string Cell(int row, int column) { return Order().lines.RowData(row, column); }

  void TearDown() override {
    order_.reset();
    DesktopTest::TearDown();
  }

 private:
  std::unique_ptr<OrderEntry> order_;
  int column_ = 1;
};

TEST_F(OrderEntryTest, OnlyKnownArticlesAreTaken) {
  TypeInto(1, OrderEntry::kArticle, "Nail");
  EXPECT_EQ(Order().state.Caption(), "\"Nail\" is no article");
  EXPECT_EQ(Cell(1, OrderEntry::kArticle), "");
  TypeInto(1, OrderEntry::kArticle, "Door handle");
  EXPECT_EQ(Order().state.Caption(), "");
  EXPECT_EQ(Cell(1, OrderEntry::kArticle), "Door handle");
  EXPECT_EQ(Cell(1, OrderEntry::kPrice), "31.75");
}

TEST_F(OrderEntryTest, PiecesAreWholeNumbersAboveZeroAndMakeTheSum) {
  Order().lines.SetRowData(1, OrderEntry::kArticle, "Door handle");
  for (const char* refused : {"0", "-1", "1.5"}) {
    TypeInto(1, OrderEntry::kPieces, refused);
    EXPECT_EQ(Cell(1, OrderEntry::kPieces), "") << refused;
  }
  TypeInto(1, OrderEntry::kPieces, "1200");
  EXPECT_EQ(Cell(1, OrderEntry::kPieces), "1200");
  EXPECT_EQ(Cell(1, OrderEntry::kSum), "38100");
  EXPECT_EQ(Order().total.Caption(), "38,100.00");
}

TEST_F(OrderEntryTest, NothingIsWantedBeforeTheDayOfTheOrder) {
  TypeInto(1, OrderEntry::kWanted, "2024-05-14");
  EXPECT_EQ(Order().state.Caption(), "2024-05-14 is before the day of the order, 2024-05-15");
  EXPECT_EQ(Cell(1, OrderEntry::kWanted), "");
  TypeInto(1, OrderEntry::kWanted, "2024-05-15");
  EXPECT_EQ(Cell(1, OrderEntry::kWanted), "2024-05-15");
}

TEST_F(OrderEntryTest, ALineThatLacksSomethingIsNotSaved) {
  EXPECT_EQ(Order().Text(), std::nullopt);
  EXPECT_EQ(Order().state.Caption(), "There is nothing to save");
  Order().lines.SetRowData(2, OrderEntry::kArticle, "Nut M4");
  EXPECT_EQ(Order().Text(), std::nullopt);
  EXPECT_EQ(Order().state.Caption(), "Line 2 has no Pieces");
}

TEST_F(OrderEntryTest, TheFileHasALineForEachLine) {
  TypeInto(1, OrderEntry::kArticle, "Nut M4");
  TypeInto(1, OrderEntry::kPieces, "1200");
  TypeInto(1, OrderEntry::kWanted, "2024-06-01");
  const auto path = std::filesystem::temp_directory_path() / "order_entry_test.txt";
  Order().Save(path.string());
  EXPECT_EQ(Order().state.Caption(), "Saved as " + path.string());
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  EXPECT_EQ(line, "Nut M4\t1200\t0.02\t24\t2024-06-01");
  file.close();
  std::filesystem::remove(path);
}

TEST_F(OrderEntryTest, AnotherLineKeepsTheOthersAndIsSelected) {
  Order().lines.SetRowData(1, OrderEntry::kArticle, "Nut M4");
  Driver().Click(Order().form->Find("cmdAdd")->ScreenCentre());
  EXPECT_EQ(Order().lines.RowCount(), 9);
  EXPECT_EQ(Order().lines.RowIndex(), 9);
  EXPECT_EQ(Cell(1, OrderEntry::kArticle), "Nut M4");
}

// The texts of a grid's cells.
#pragma once

#include <cstdint>
#include <memory_resource>
#include <string_view>
#include <vector>

namespace levelwidgets {

// Rows and columns count from 1. Rows take no memory while all their texts are empty, whatever their number.
//
// Texts are UTF-8 of any length. A text that is handed out is good until the store changes.
class CellStore {
 public:
  explicit CellStore(std::pmr::memory_resource& memory = *std::pmr::new_delete_resource());
  CellStore(const CellStore&) = delete;
  CellStore& operator=(const CellStore&) = delete;
  ~CellStore();

  // What the store holds: one row of one column where one of the two would be below 1.
  std::int32_t Rows() const { return HasCells() ? row_count_ : 1; }
  std::int32_t Columns() const { return HasCells() ? column_count_ : 1; }

  // Empty cells.
  void Recreate(std::int32_t row_count, std::int32_t column_count);
  // Keeps the texts of the rows that remain. With another number of columns, or without any cell, all are
  // empty.
  void Resize(std::int32_t row_count, std::int32_t column_count);

  // Both raise 1003 "Invalid Row" unless 1 <= row <= row count, then 1004 "Invalid Column" unless
  // 1 <= column <= column count.
  std::string_view Text(std::int32_t row, std::int32_t column) const;
  // Raises 7 (out of memory); then every cell keeps what it had. `text` may be one of the store's own.
  void SetText(std::int32_t row, std::int32_t column, std::string_view text);

 private:
  struct Row;
  struct Chunk;

  bool HasCells() const { return row_count_ >= 1 && column_count_ >= 1; }
  void Check(std::int32_t row, std::int32_t column) const;

  // Rows are counted from 0 here.
  std::size_t RowBytes() const;
  // Null while the row is empty.
  Row* Find(std::size_t row) const;
  // Makes a row that is empty.
  Row& Make(std::size_t row);
  void Free(Row*& row);
  void Free(Chunk*& chunk);
  // Those from `row` on become empty.
  void FreeFrom(std::size_t row);
  void Write(std::size_t row, std::size_t column, std::string_view text);

  std::pmr::memory_resource& memory_;
  std::int32_t row_count_ = 0;
  std::int32_t column_count_ = 0;
  std::pmr::vector<Chunk*> chunks_;  // up to the last one that was ever needed; null where all rows are empty
};

}  // namespace levelwidgets

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace publishing {

// Text in columns for a terminal, each as wide as its widest cell, two blanks apart.
class Table {
 public:
  using Row = std::vector<std::string>;

  // Every row has as many cells as the first one. Cells are UTF-8.
  void add(Row row) { rows_.push_back(std::move(row)); }

  // Lines without blanks at their ends; the last one without its line break.
  [[nodiscard]] std::string text() const;

 private:
  [[nodiscard]] std::vector<std::size_t> widths() const;

  std::vector<Row> rows_;
};

}  // namespace publishing

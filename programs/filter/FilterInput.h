// SPDX-License-Identifier: Apache-2.0
// The document that the filter gets.
#pragma once

#include <string>

#include "printing/dsc/DscReader.h"
#include "programs/filter/Files.h"
#include "programs/filter/FilterJob.h"

namespace publishing {

class FilterInput {
 public:
  enum class Type {
    PDF,
    FinishedPDF,  // its pages are laid out for the printer already (application/vnd.cups-pdf)
    PostScript,
    Sheets  // PostScript that has its covers and inserts
  };

  // Opens the job's file or takes standard input, and looks at its beginning without taking it
  // away. Throws std::system_error.
  explicit FilterInput(const FilterJob& job);

  [[nodiscard]] Type type() const { return type_; }
  [[nodiscard]] int descriptor() const { return input_.get(); }

  // The document from its beginning, which can be read again then. What came through a pipe is
  // copied to a nameless file for that.
  DscReader reader();
  void rewind();

 private:
  FileDescriptor input_;
  Type type_;
};

}  // namespace publishing

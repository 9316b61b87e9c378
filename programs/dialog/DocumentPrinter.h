// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <gtk/gtkunixprint.h>

#include "printing/Document.h"
#include "programs/terminal/ExitStatus.h"
#include "shells/gtk/GObjectPtr.h"

namespace publishing {

// Prints a document as the user wants it in a print dialog, and shows how far it is sent.
class DocumentPrinter {
 public:
  // Both are the caller's and must outlive this object.
  DocumentPrinter(const Document& document, GtkPrintUnixDialog* dialog)
      : document_(document), dialog_(dialog) {}
  DocumentPrinter(const DocumentPrinter&) = delete;
  DocumentPrinter& operator=(const DocumentPrinter&) = delete;

  // Shows the dialog; returns when the document is with the print server, the user has cancelled
  // (both kDone), or the user has read why it cannot be printed (kTrouble). Throws PrintError for a
  // document that cannot be read any more.
  ExitStatus run();

 private:
  ExitStatus send();
  void showProgress(const std::string& printer);
  void updateProgress();
  void showFailure(const std::string& printer, const std::string& reason);

  static void sent(GtkPrintJob* job, gpointer self, const GError* error);

  const Document& document_;
  GtkPrintUnixDialog* dialog_;
  int file_ = -1;  // the job reads from it
  GObjectPtr<GtkWidget> progressWindow_;
  GtkWidget* progressBar_ = nullptr;
  bool isSent_ = false;
  std::string failure_;
};

}  // namespace publishing

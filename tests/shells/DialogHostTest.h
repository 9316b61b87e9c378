// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

#include <glib.h>
#include <gtest/gtest.h>

#include "printing/StoredSettings.h"
#include "printing/ppd/PPDDocument.h"
#include "tests/shells/TinyDialog.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {

// A dialog, two printers with everything that the panel wants, and nothing remembered. The queue of
// the first one makes the covers and inserts, the second one's driver would have to.
class DialogHostTest : public testing::Test {
 protected:
  DialogHostTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }

  void choose(const std::string& printer) {
    dialog.selectPrinter(printer);
    dialog.lookAtTab();
  }
  [[nodiscard]] HeadlessCheckBox& box(const char* name) const {
    return *dialog.panel().checkBox(name);
  }
  [[nodiscard]] HeadlessPopUpButton& popUp(const char* name) const {
    return *dialog.panel().popUpButton(name);
  }

  // Front and back covers and inserts, on paper of their own.
  void wishForEverything() {
    dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
    box("CmCheckBox").click();
    dialog.panel().radioMatrix("CmFrontandBackMatrix")->click(1);
    popUp("CmMediaType").choose(4);
    box("CmBackOutside").click();
    box("PiCheckBox").click();
    dialog.panel().textField("PiPageNum")->type("4-6,9");
    popUp("PiMediaType").choose(2);
    box("PiPrintOnFront").click();
  }
  [[nodiscard]] HeadlessRadioMatrix& covers() const {
    return *dialog.panel().radioMatrix("CmFrontandBackMatrix");
  }
  [[nodiscard]] HeadlessTextField& pages() const { return *dialog.panel().textField("PiPageNum"); }
  [[nodiscard]] static StoredSettings::Values stored(const std::string& printer) {
    return StoredSettings().load(printer).values;
  }

  TemporaryFolder folder;
  const std::string office =
      folder.file("Office.ppd", contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd") +
                                    "*cupsFilter: \"" + kSheetType + " 0 -\"\n");
  const std::string studio =
      folder.file("Studio.ppd", contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd"));
  TinyDialog dialog;
};

}  // namespace publishing

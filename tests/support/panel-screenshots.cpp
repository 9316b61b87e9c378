// SPDX-License-Identifier: Apache-2.0
// Draws the panel as a user sees it, one picture a tab and a kind of job:
//   panel-screenshots PPD PREFIX [--rtl]
// The toolkit's own switches (GDK_SCALE, GTK_THEME) change the look, LANGUAGE the texts. Files are
// PREFIX...png.
#include <iostream>
#include <sstream>

#include <gtk/gtk.h>

#include "base/Translation.h"
#include "tests/support/GtkStage.h"
#include "tests/support/PanelScript.h"
#include "tests/support/Picture.h"

namespace publishing {
namespace {

void draw(GtkStage& stage, const std::string& file) {
  stage.shown();
  gtk_window_resize(stage.window(), 1, 1);
  drawWindow(stage.window(), file);
}

void drawJob(const std::string& setUp, const std::string& prefix) {
  GtkStage* stage = nullptr;
  PanelScript script(
      [&](AlertSink alerts) {
        auto made = std::make_unique<GtkStage>(std::move(alerts));
        stage = made.get();
        return made;
      },
      std::cout);
  std::istringstream commands(
      setUp +
      "view\nrestore\nshow\nclick CmCheckBox\nradio 1\nclick CmFrontOutside\n"
      "click CmBackInside\nchoose CmMediaType 4\nclick PiCheckBox\ntype 5,8,12-14\n"
      "choose PiMediaType 5\nclick PiPrintOnFront\n");
  script.run(commands);
  draw(*stage, prefix + "cover.png");
  stage->selectTab(1);
  draw(*stage, prefix + "insert.png");
}

}  // namespace
}  // namespace publishing

int main(int argc, char** argv) {
  gtk_init(&argc, &argv);
  publishing::bindTranslations();
  if (argc < 3) {
    std::cerr << "usage: panel-screenshots PPD PREFIX [--rtl]\n";
    return 2;
  }
  if (argc > 3 && std::string(argv[3]) == "--rtl")
    gtk_widget_set_default_direction(GTK_TEXT_DIR_RTL);
  const std::string printer = std::string("ppd ") + argv[1] + "\n";
  publishing::drawJob(printer, std::string(argv[2]) + "one-sided-");
  publishing::drawJob(printer + "duplex 2\n", std::string(argv[2]) + "two-sided-");
  return 0;
}

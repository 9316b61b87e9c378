// SPDX-License-Identifier: Apache-2.0
// Which program the help is shown in, and where it opens.
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "shells/HelpBook.h"
#include "shells/gtk/Toolkit.h"
#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/GtkStage.h"
#include "tests/support/PrintDialogUser.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

// A desktop on which another program than the web browser opens HTML files. Set up before GLib
// looks for one.
class Desktop {
 public:
  Desktop() {
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
      g_setenv(variable, folder.path().c_str(), TRUE);
    std::filesystem::create_directories(folder / "applications");
    addProgram("browser", "x-scheme-handler/https;x-scheme-handler/http");
    addProgram("editor", "text/html");
    std::ofstream(folder / "applications/mimeapps.list")
        << "[Default Applications]\nx-scheme-handler/https=browser.desktop\n"
           "x-scheme-handler/http=browser.desktop\ntext/html=editor.desktop\n";
    std::filesystem::create_directories(folder / "help/C");
    std::ofstream(folder / "help/C/index.html") << "<html></html>";
  }

  // What the program was started with; empty when it was not.
  [[nodiscard]] std::string startedWith(const std::string& program) const {
    std::ifstream file(folder / program);
    std::string words;
    std::getline(file, words);
    return words;
  }

  TemporaryFolder folder;

 private:
  void addProgram(const std::string& name, const std::string& types) const {
    const std::string script = folder / (name + ".sh");
    std::ofstream(script) << "#!/bin/sh\necho \"$*\" >\"" << (folder / name) << ".part\"\nmv \""
                          << (folder / name) << ".part\" \"" << (folder / name) << "\"\n";
    chmod(script.c_str(), 0700);
    std::ofstream(folder / ("applications/" + name + ".desktop"))
        << "[Desktop Entry]\nType=Application\nName=" << name << "\nExec=" << script
        << " %u\nMimeType=" << types << ";\n";
  }
};

const Desktop desktop;

// The browser is another process, of which the main loop hears nothing.
void waitForBrowser() {
  const auto tick = [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; };
  const guint clock = g_timeout_add(20, +tick, nullptr);
  PrintDialogUser::waitUntil("the browser", [] { return !desktop.startedWith("browser").empty(); });
  g_source_remove(clock);
}

TEST(GtkHelp, OpensInTheWebBrowserAtTheTabInFront) {
  ControlsOwner owner;
  GtkStage stage([](const auto&...) {});
  GtkBundle bundle(desktop.folder.path());
  ASSERT_TRUE(bundle.registerHelpBook());
  ASSERT_TRUE(bundle.loadInterface("Publishing", owner));
  const auto window = gestures::newWindow();
  gestures::setContent(GTK_WINDOW(window.get()), bundle.interface()->view()->widget());
  bundle.interface()->tabView("tabView")->removeTabViewItemAtIndex(1);  // as the panel does
  for (const char* part : {"#covers", "#inserts"}) {
    std::filesystem::remove(desktop.folder / "browser");
    ASSERT_EQ(bundle.gotoHelpPage(kHelpBook), 0);
    waitForBrowser();
    const std::string page = desktop.startedWith("browser");
    EXPECT_EQ(page, "file://" + (desktop.folder / "help/C/index.html") + part);
    bundle.revealText("PiPageNum", 0, 0);
  }
  EXPECT_EQ(desktop.startedWith("editor"), "");
  toolkit::destroyWindow(GTK_WINDOW(window.get()));
}

}  // namespace
}  // namespace publishing

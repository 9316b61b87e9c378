// SPDX-License-Identifier: Apache-2.0
// Which list of print backends counts, and which library GTK would load.
#include "programs/gtk-settings/GtkSettingsPlaces.h"

#include <filesystem>
#include <string>

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class GtkSettingsPlacesTest : public ::testing::Test {
 protected:
  [[nodiscard]] std::string write(const std::string& name, const std::string& list) const {
    return folder_.file(name, "[Settings]\ngtk-print-backends=" + list + "\n");
  }

  TemporaryFolder folder_;
  GtkSettingsPlaces places_ = {"file,cups",
                               {folder_ / "share", folder_ / "etc", folder_ / "xdg"},
                               folder_ / "user",
                               folder_ / "etc"};
};

TEST_F(GtkSettingsPlacesTest, TheLastFileThatHasAListCounts) {
  EXPECT_EQ(printBackends(places_, true).list, "file,cups");
  EXPECT_EQ(printBackends(places_, true).file, "");
  for (const char* name : {"share", "etc", "xdg", "user"}) {
    const std::string file = write(name, name);
    EXPECT_EQ(printBackends(places_, true).list, name);
    EXPECT_EQ(printBackends(places_, true).file, file);
  }
  EXPECT_EQ(printBackends(places_, false).list, "xdg");
  (void)folder_.file("user", "[Settings]\n");
  EXPECT_EQ(printBackends(places_, true).list, "xdg");
}

TEST_F(GtkSettingsPlacesTest, AFileInheritsFromThoseThatAreReadBeforeIt) {
  (void)write("share", "a");
  (void)write("etc", "b");
  (void)write("xdg", "c");
  (void)write("user", "d");
  EXPECT_EQ(inheritedBackends(places_, places_.systemFiles[0]), "file,cups");
  EXPECT_EQ(inheritedBackends(places_, places_.systemFile), "a");
  EXPECT_EQ(inheritedBackends(places_, places_.userFile), "c");
}

TEST_F(GtkSettingsPlacesTest, FilesThatGtkIgnoresAreReportedAndIgnored) {
  (void)write("etc", "lpr");
  (void)folder_.file("user", "garbage\n");
  const PrintBackends backends = printBackends(places_, true);
  EXPECT_EQ(backends.list, "lpr");
  EXPECT_THAT(backends.warnings,
              ElementsAre(AllOf(HasSubstr(places_.userFile), HasSubstr("garbage"))));
  EXPECT_THAT(printBackends(places_, false).warnings, IsEmpty());
}

// Whatever order GTK itself was built with, these two are its own.
TEST_F(GtkSettingsPlacesTest, EachGtkIsAskedForItsOwnList) {
  for (const GtkVersion gtk : {GtkVersion::Gtk3, GtkVersion::Gtk4}) {
    const GtkSettingsPlaces places = GtkSettingsPlaces::here(gtk);
    EXPECT_THAT(places.builtIn, AllOf(HasSubstr("file"), HasSubstr("cups")));
    EXPECT_THAT(places.systemFiles, Contains(places.systemFile));
  }
  EXPECT_EQ(GtkSettingsPlaces::here(GtkVersion::Gtk3).systemFile, "/etc/gtk-3.0/settings.ini");
  EXPECT_EQ(GtkSettingsPlaces::here(GtkVersion::Gtk4).systemFile, "/etc/gtk-4.0/settings.ini");
}

struct Sought {
  GtkVersion gtk;
  const char* folder;     // below GTK_PATH
  const char* libraries;  // below GTK_EXE_PREFIX
};

class PrintBackendLibrary : public ::testing::TestWithParam<Sought> {};

TEST_P(PrintBackendLibrary, IsSoughtWhereGtkSeeksIt) {
  const Sought& sought = GetParam();
  const std::string library = "/printbackends/libprintbackend-publishing.so";
  const TemporaryFolder path;
  g_setenv("GTK_PATH", ("/nowhere:" + path.path()).c_str(), 1);
  g_setenv("GTK_EXE_PREFIX", path.path().c_str(), 1);
  EXPECT_EQ(printBackendLibrary(sought.gtk), std::nullopt);
  for (const std::string folder : {sought.libraries, sought.folder}) {
    std::filesystem::create_directories(path.path() + folder + "/printbackends");
    (void)path.file(folder + library, "");
    EXPECT_EQ(printBackendLibrary(sought.gtk), path.path() + folder + library);
  }
  g_unsetenv("GTK_PATH");
  g_unsetenv("GTK_EXE_PREFIX");
}

INSTANTIATE_TEST_SUITE_P(Gtks, PrintBackendLibrary,
                         ::testing::Values(Sought{GtkVersion::Gtk3, "/3.0.0", "/lib/gtk-3.0/3.0.0"},
                                           Sought{GtkVersion::Gtk3, "", "/lib/gtk-3.0/3.0.0"},
                                           Sought{GtkVersion::Gtk4, "/4.0.0",
                                                  "/lib/gtk-4.0/4.0.0"}),
                         [](const auto& one) {
                           return "Gtk" + std::to_string(static_cast<int>(one.param.gtk)) +
                                  (*one.param.folder == '\0' ? "WithoutVersion" : "");
                         });

TEST(ModuleCache, CountsForFilesThatWereThereWhenItWasMade) {
  const TemporaryFolder folder;
  const std::string library = folder.file("libprintbackend-publishing.so", "");
  EXPECT_FALSE(isInModuleCache(library));
  const std::string other = "libprintbackend-file.so: gtk-print-backend\n";
  (void)folder.file("giomodule.cache", other);
  EXPECT_FALSE(isInModuleCache(library));
  const std::string cache =
      folder.file("giomodule.cache", other + "libprintbackend-publishing.so: gtk-print-backend\n");
  EXPECT_TRUE(isInModuleCache(library));
  EXPECT_FALSE(isInModuleCache(folder / "libprintbackend-other.so"));
}

}  // namespace
}  // namespace publishing

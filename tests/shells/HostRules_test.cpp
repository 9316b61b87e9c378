// SPDX-License-Identifier: Apache-2.0
#include "shells/HostRules.h"

#include <filesystem>
#include <fstream>

#include <glib.h>
#include <gtest/gtest.h>

namespace publishing {
namespace {

// The rules when the user's file has this content.
HostRules rulesOf(const std::string& content) {
  const auto folder = std::filesystem::path(g_get_user_config_dir()) / "publishing/dialog";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "rules.ini") << content;
  HostRules rules = HostRules::load();
  std::filesystem::remove_all(folder);
  return rules;
}

TEST(HostRules, HiddenPanelsAreShownUnlessTheFileOrTheEnvironmentHidesThem) {
  EXPECT_TRUE(HostRules::load().showHiddenPanels);
  EXPECT_TRUE(rulesOf("[Dialog]\nShowHiddenPanels=true\n").showHiddenPanels);
  EXPECT_FALSE(rulesOf("[Dialog]\nShowHiddenPanels=false\n").showHiddenPanels);
  g_setenv("PUBLISHING_SHOW_HIDDEN_PANELS", "1", TRUE);
  EXPECT_TRUE(rulesOf("[Dialog]\nShowHiddenPanels=false\n").showHiddenPanels);
  g_setenv("PUBLISHING_SHOW_HIDDEN_PANELS", "0", TRUE);
  EXPECT_FALSE(rulesOf("[Dialog]\nShowHiddenPanels=true\n").showHiddenPanels);
  g_unsetenv("PUBLISHING_SHOW_HIDDEN_PANELS");
}

TEST(HostRules, PanelCanBeSwitchedOffInTheFileOrTheEnvironment) {
  EXPECT_TRUE(HostRules::load().extension);
  EXPECT_TRUE(rulesOf("[Dialog]\nExtension=true\n").extension);
  EXPECT_FALSE(rulesOf("[Dialog]\nExtension=false\n").extension);
  g_setenv("PUBLISHING_EXTENSION", "1", TRUE);
  EXPECT_TRUE(rulesOf("[Dialog]\nExtension=false\n").extension);
  for (const char* no : {"0", "off"}) {
    g_setenv("PUBLISHING_EXTENSION", no, TRUE);
    EXPECT_FALSE(rulesOf("[Dialog]\nExtension=true\n").extension) << no;
  }
  g_unsetenv("PUBLISHING_EXTENSION");
}

TEST(HostRules, RememberingCanBeSwitchedOffAndTheFileIsNamed) {
  EXPECT_TRUE(HostRules::load().remember);
  EXPECT_EQ(rulesOf("[Dialog]\nRemember=true\n").againstRemembering(), "");
  const HostRules off = rulesOf("[Dialog]\nRemember=false\n");
  EXPECT_FALSE(off.remember);
  EXPECT_EQ(off.againstRemembering(),
            "Nothing is remembered: " + off.file + " has Remember=false.");
  EXPECT_TRUE(rulesOf("[Dialog]\nRemember=perhaps\n").remember);
}

TEST(HostRules, ValuesThatMakeNoSenseAreLeftOut) {
  EXPECT_TRUE(rulesOf("[Dialog]\nShowHiddenPanels=perhaps\n").showHiddenPanels);
  EXPECT_TRUE(rulesOf("[Dialog]\nExtension=perhaps\n").extension);
  EXPECT_TRUE(rulesOf("no key file at all").showHiddenPanels);
  for (const char* seconds : {"0", "601", "-1", "soon", ""}) {
    EXPECT_EQ(rulesOf(std::string("[Dialog]\nPrinterSeconds=") + seconds + "\n").printerSeconds,
              HostRules().printerSeconds)
        << seconds;
  }
  EXPECT_EQ(rulesOf("[Dialog]\nPrinterSeconds=600\n").printerSeconds, 600U);
}

}  // namespace
}  // namespace publishing

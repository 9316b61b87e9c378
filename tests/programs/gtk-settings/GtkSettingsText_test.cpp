// SPDX-License-Identifier: Apache-2.0
// Switching the extension on and off in the text of a settings.ini of GTK.
#include "programs/gtk-settings/GtkSettingsText.h"

#include <string>
#include <vector>

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace publishing {
namespace {

using Made = GtkSettingsText::Made;

std::string enabled(const std::string& text, Made made = Made::Group) {
  GtkSettingsText settings(text);
  settings.enable("file,cups", made);
  return settings.text();
}

std::string disabled(const std::string& text) {
  GtkSettingsText settings(text);
  settings.disable();
  return settings.text();
}

// The list as GTK reads it.
std::string listReadByGtk(const std::string& text) {
  GKeyFile* file = g_key_file_new();
  g_key_file_load_from_data(file, text.data(), text.size(), G_KEY_FILE_NONE, nullptr);
  char* list = g_key_file_get_string(file, "Settings", "gtk-print-backends", nullptr);
  std::string result = list != nullptr ? list : "";
  g_free(list);
  g_key_file_free(file);
  return result;
}

const std::string kEntry = "gtk-print-backends=file,cups,publishing";
const std::string kEntryAdded = R"(# Entry added by "publishing extension enable": )" + kEntry;
const std::string kGroupAdded = R"(# Group added by "publishing extension enable": )" + kEntry;

struct Case {
  std::string before;
  std::string after;
};

// Each of them without "publishing".
const std::vector<Case> kCases = {
    {"", kGroupAdded + "\n[Settings]\n" + kEntry + "\n"},
    {"\n", "\n" + kGroupAdded + "\n[Settings]\n" + kEntry + "\n"},
    {"# a remark", "# a remark\n" + kGroupAdded + "\n[Settings]\n" + kEntry},
    {"[Other]\r\nx=1\r\n",
     "[Other]\r\nx=1\r\n" + kGroupAdded + "\r\n[Settings]\r\n" + kEntry + "\r\n"},
    {"[Other]\r\nx=1", "[Other]\r\nx=1\r\n" + kGroupAdded + "\r\n[Settings]\r\n" + kEntry},
    {"[Settings]", "[Settings]\n" + kEntryAdded + "\n" + kEntry},
    {"[Settings]\n", "[Settings]\n" + kEntryAdded + "\n" + kEntry + "\n"},
    {"[Settings]\r\n", "[Settings]\r\n" + kEntryAdded + "\r\n" + kEntry + "\r\n"},
    {"[Settings]\n\n# theme\ngtk-theme-name=Adwaita",
     "[Settings]\n" + kEntryAdded + "\n" + kEntry + "\n\n# theme\ngtk-theme-name=Adwaita"},
    {"  [Settings]  \nx=1\n[Settings]\n",
     "  [Settings]  \n" + kEntryAdded + "\n" + kEntry + "\nx=1\n[Settings]\n"},
    {"[Settings]\n# gtk-print-backends=lpr\n",
     "[Settings]\n" + kEntryAdded + "\n" + kEntry + "\n# gtk-print-backends=lpr\n"},
    {"[Settings]\ngtk-print-backends[de]=lpr\n",
     "[Settings]\n" + kEntryAdded + "\n" + kEntry + "\ngtk-print-backends[de]=lpr\n"},
    {"[Other]\ngtk-print-backends=lpr\n[Settings]\n",
     "[Other]\ngtk-print-backends=lpr\n[Settings]\n" + kEntryAdded + "\n" + kEntry + "\n"},
    // An entry that is there.
    {"[Settings]\ngtk-print-backends=file\n", "[Settings]\ngtk-print-backends=file,publishing\n"},
    {"[Settings]\ngtk-print-backends=file", "[Settings]\ngtk-print-backends=file,publishing"},
    {"[Settings]\r\n gtk-print-backends = file , cups \r\nx=1\r\n",
     "[Settings]\r\n gtk-print-backends = file , cups ,publishing\r\nx=1\r\n"},
    {"[Settings]\ngtk_print_backends=file\n", "[Settings]\ngtk_print_backends=file,publishing\n"},
    {"[Settings]\ngtk-print-backends=\n", "[Settings]\ngtk-print-backends=publishing\n"},
    {"[Settings]\ngtk-print-backends=file,\n", "[Settings]\ngtk-print-backends=file,,publishing\n"},
    {"[Settings]\ngtk-print-backends=publishing-lab\n",
     "[Settings]\ngtk-print-backends=publishing-lab,publishing\n"},
    // Of several the last one counts.
    {"[Settings]\ngtk-print-backends=a\n[Other]\nx=1\n[Settings]\ngtk-print-backends=b\n[Other]\n",
     "[Settings]\ngtk-print-backends=a\n[Other]\nx=1\n[Settings]\ngtk-print-backends=b,publishing\n"
     "[Other]\n"},
    {"[Settings]\ngtk-print-backends=publishing\ngtk-print-backends=b\n",
     "[Settings]\ngtk-print-backends=publishing\ngtk-print-backends=b,publishing\n"},
    // Bytes that are no UTF-8.
    {"# Gr\xFC\xDF"
     "e\n[Settings]\ngtk-font-name=\xFC\n",
     "# Gr\xFC\xDF"
     "e\n[Settings]\n" +
         kEntryAdded + "\n" + kEntry + "\ngtk-font-name=\xFC\n"},
};

TEST(GtkSettingsText, EnablesBesideWhatWasThere) {
  for (const Case& row : kCases) {
    SCOPED_TRACE(row.before);
    EXPECT_EQ(enabled(row.before), row.after);
    const GtkSettingsText settings(row.after);
    EXPECT_TRUE(listsPublishing(settings.backends().value_or("")));
    EXPECT_EQ(settings.fault(), std::nullopt);
    if (row.after.find("gtk_print_backends") == std::string::npos) {
      EXPECT_EQ(settings.backends(), listReadByGtk(row.after));
    }
  }
}

TEST(GtkSettingsText, EnablingTwiceChangesNothing) {
  for (const Case& row : kCases)
    EXPECT_EQ(enabled(row.after), row.after);
}

TEST(GtkSettingsText, DisablingGivesBackEveryByte) {
  for (const Case& row : kCases)
    EXPECT_EQ(disabled(row.after), row.before);
}

TEST(GtkSettingsText, DisablingWhatWasNeverEnabledChangesNothing) {
  for (const Case& row : kCases)
    EXPECT_EQ(disabled(row.before), row.before);
}

TEST(GtkSettingsText, TellsWhatItHadMade) {
  for (const Made made : {Made::Group, Made::File, Made::Folder}) {
    GtkSettingsText settings(enabled("", made));
    EXPECT_EQ(settings.disable(), made);
    EXPECT_EQ(settings.text(), "");
  }
  GtkSettingsText settings(enabled("[Settings]\n", Made::Group));
  EXPECT_EQ(settings.disable(), Made::Entry);
}

TEST(GtkSettingsText, AnEntryOfSomebodyElseIsEnoughAndIsTakenOutToo) {
  const std::vector<Case> rows = {
      {"[Settings]\ngtk-print-backends=publishing\n", "[Settings]\ngtk-print-backends=\n"},
      {"[Settings]\ngtk-print-backends= publishing , file\n",
       "[Settings]\ngtk-print-backends=  file\n"},
      {"[Settings]\ngtk-print-backends=publishing,file,publishing\n",
       "[Settings]\ngtk-print-backends=file\n"},
      {"[Settings]\ngtk-print-backends=file, publishing, cups\n",
       "[Settings]\ngtk-print-backends=file, cups\n"},
  };
  for (const Case& row : rows) {
    EXPECT_EQ(enabled(row.before), row.before);
    EXPECT_EQ(disabled(row.before), row.after);
  }
}

TEST(GtkSettingsText, WhatOthersChangedSinceStays) {
  const std::string marked = "[Settings]\n" + kEntryAdded + "\n";
  const std::vector<Case> rows = {
      // another list
      {marked + "gtk-print-backends=file,cups,publishing,lpr\n",
       "[Settings]\ngtk-print-backends=file,cups,lpr\n"},
      {marked + "gtk-print-backends=lpr\nx=1\n", "[Settings]\ngtk-print-backends=lpr\nx=1\n"},
      // the entry was removed or moved, the remark stayed
      {marked, "[Settings]\n"},
      {marked + "x=1\n" + kEntry + "\n", "[Settings]\nx=1\ngtk-print-backends=file,cups\n"},
      // the remark was removed
      {"[Settings]\n" + kEntry + "\n", "[Settings]\ngtk-print-backends=file,cups\n"},
      // the group is used
      {kGroupAdded + "\n[Settings]\n" + kEntry + "\nx=1\n", "[Settings]\nx=1\n"},
      {kGroupAdded + "\n[Settings]\n" + kEntry + "\n# remark", "[Settings]\n# remark"},
      {kGroupAdded + "\n[Settings]\nx=1\n" + kEntry + "\n",
       "[Settings]\nx=1\ngtk-print-backends=file,cups\n"},
      // the group is not used
      {kGroupAdded + "\n[Settings]\n" + kEntry + "\n\n[Other]\nx=1\n", "\n[Other]\nx=1\n"},
      // a later entry hides ours
      {marked + kEntry + "\ngtk-print-backends=lpr\n", "[Settings]\ngtk-print-backends=lpr\n"},
      // somebody took the end of the last line away
      {"[Settings]\nx=1\n" + kGroupAdded + "\n[Settings]\n" + kEntry, "[Settings]\nx=1"},
  };
  for (const Case& row : rows) {
    SCOPED_TRACE(row.before);
    EXPECT_EQ(disabled(row.before), row.after);
  }
}

TEST(GtkSettingsText, ANewEntryBeginsWithTheListThatCountsWithoutIt) {
  const std::vector<Case> rows = {{"lpr , cups\r", "lpr , cups,publishing"}, {"", "publishing"}};
  for (const Case& row : rows) {
    GtkSettingsText settings("");
    settings.enable(row.before);
    EXPECT_EQ(settings.backends(), row.after);
  }
}

TEST(GtkSettingsText, FindsFaultWithWhatGtkDoesNotRead) {
  for (const char* text :
       {"[Settings]\ngarbage\n", "gtk-print-backends=file\n", "\xEF\xBB\xBF[Settings]\nx=1\n",
        "[Settings]\ngtk-print-backends=a\\qb\n", "[Settings]\ngtk_print_backends=\xFC\n"}) {
    EXPECT_NE(GtkSettingsText(text).fault(), std::nullopt) << text;
  }
  for (const Case& row : kCases)
    EXPECT_EQ(GtkSettingsText(row.before).fault(), std::nullopt) << row.before;
}

}  // namespace
}  // namespace publishing

// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/gtk4/InterfaceConversion.h"

#include <gtest/gtest.h>

namespace publishing {
namespace {

std::string converted(const std::string& inside) {
  const std::string description = "<interface domain=\"d\">" + inside + "</interface>";
  const auto interface = convertInterface(description.c_str(), -1);
  if (!interface) return "(nothing)";
  const std::string& text = interface->description;
  const std::string begin = "<interface domain=\"d\">";
  const std::string end = "</interface>";
  return text.substr(begin.size(), text.size() - begin.size() - end.size());
}

TEST(InterfaceConversion, WhatBothGtksReadAlikeStays) {
  const std::string object =
      "<object class=\"GtkLabel\" id=\"a\"><property name=\"label\" translatable=\"yes\">1 &lt; 2 "
      "&amp; 3</property><style><class name=\"dim-label\"></class></style></object>";
  EXPECT_EQ(converted(object), object);
}

TEST(InterfaceConversion, WhatGtk4SaysInAnotherWayIsRewritten) {
  const std::pair<const char*, const char*> cases[] = {
      {"<requires lib=\"gtk+\" version=\"3.22\"/>",
       "<requires lib=\"gtk\" version=\"4.0\"></requires>"},
      {"<object class=\"GtkRadioButton\"/>", "<object class=\"PublishingRadioButton\"></object>"},
      {"<object class=\"GtkBox\"><property name=\"border-width\">18</property></object>",
       "<object class=\"GtkBox\"><property name=\"margin-start\">18</property>"
       "<property name=\"margin-end\">18</property><property name=\"margin-top\">18</property>"
       "<property name=\"margin-bottom\">18</property></object>"},
      {"<child><object class=\"GtkLabel\"/><packing><property name=\"left-attach\">1</property>"
       "<property name=\"top-attach\">2</property></packing></child>",
       "<child><object class=\"GtkLabel\"><layout><property name=\"column\">1</property>"
       "<property name=\"row\">2</property></layout></object></child>"},
      {"<object class=\"GtkEntry\"><accessibility><relation type=\"labelled-by\" target=\"a\"/>"
       "<relation type=\"label-for\" target=\"b\"/></accessibility></object>",
       "<object class=\"GtkEntry\"><accessibility><relation name=\"labelled-by\">a</relation>"
       "</accessibility></object>"},
      {"<child internal-child=\"accessible\"><object class=\"AtkObject\">"
       "<property name=\"AtkObject::accessible-name\" translatable=\"yes\">Front</property>"
       "</object></child>",
       "<accessibility><property name=\"label\" translatable=\"yes\">Front</property>"
       "</accessibility>"}};
  for (const auto& [before, after] : cases)
    EXPECT_EQ(converted(before), after);
}

TEST(InterfaceConversion, SignalsAreCollected) {
  const std::string description =
      "<interface><object class=\"GtkBox\"><child><object class=\"GtkCheckButton\" id=\"box\">"
      "<signal name=\"toggled\" handler=\"change\"/></object></child></object></interface>";
  const auto interface = convertInterface(description.c_str(), -1);
  ASSERT_TRUE(interface);
  ASSERT_EQ(interface->signals.size(), 1U);
  EXPECT_EQ(interface->signals[0].object, "box");
  EXPECT_EQ(interface->signals[0].name, "toggled");
  EXPECT_EQ(interface->signals[0].handler, "change");
  EXPECT_EQ(interface->description.find("signal"), std::string::npos);
}

}  // namespace
}  // namespace publishing

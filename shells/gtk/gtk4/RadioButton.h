// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtk/gtk.h>

namespace publishing {

// A GtkCheckButton of a group that tells of each click, also of one on the button that is active
// already, by the signal "clicked", as radio buttons do in GTK 3. In interface descriptions it is a
// "PublishingRadioButton". Kept for the life of the process.
GType radioButtonType();

}  // namespace publishing

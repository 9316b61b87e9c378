// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtk/gtkunixprint.h>

#include "shells/DialogJob.h"

namespace publishing {

// What the dialog's own tabs say of the job at this moment.
DialogJob jobOf(GtkPrintUnixDialog* dialog);

}  // namespace publishing

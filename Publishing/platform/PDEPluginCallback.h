// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <cups/ppd.h>

#include "Publishing/platform/PrintSettings.h"

namespace publishing {

// Opaque reference to a printing session; kept for hosts that still hand out print tickets.
using PMPrintSession = void*;

// The panel's only road to the job: the print dialog that hosts the panel implements it.
class PDEPluginCallback {
 public:
  virtual ~PDEPluginCallback() = default;

  // The job's settings, owned by the host. Asked anew for each use, never kept by the panel.
  [[nodiscard]] virtual PrintSettings& printSettings() = 0;

  // The selected printer's PPD, opened and owned by the host, or null. Its marks are the choices in
  // force. A PPD must stay open until the host has handed out another one (or null) and has driven
  // the panel's willShow since.
  [[nodiscard]] virtual ppd_file_t* ppdFile() = 0;

  [[nodiscard]] virtual PMPrintSession printSession() = 0;

  // The panel asks the host to set a PPD choice for the job; both are keywords. Answers whether the
  // host did.
  virtual bool willChangePPDOptionKeyValue(const std::string& option,
                                           const std::string& choice) = 0;
};

}  // namespace publishing

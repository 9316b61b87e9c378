// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Publishing/platform/PDEPluginCallback.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"

namespace publishing {

// The callback object of a panel whose job is a ticket: one printer and one job ticket, both the
// caller's.
class TicketCallback final : public PDEPluginCallback {
 public:
  TicketCallback(Printer& printer, JobTicket& ticket) : printer_(printer), ticket_(ticket) {}

  [[nodiscard]] PrintSettings& printSettings() override { return ticket_; }
  [[nodiscard]] ppd_file_t* ppdFile() override { return printer_.ppdFile(); }
  [[nodiscard]] PMPrintSession printSession() override { return nullptr; }

  // Stores the choice in the ticket under its option's keyword and marks it in the PPD.
  bool willChangePPDOptionKeyValue(const std::string& option, const std::string& choice) override {
    ticket_.setValue(option, choice);
    return printer_.ppd() != nullptr && printer_.ppd()->mark(option, choice);
  }

 private:
  Printer& printer_;
  JobTicket& ticket_;
};

}  // namespace publishing

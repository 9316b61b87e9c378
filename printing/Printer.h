// SPDX-License-Identifier: Apache-2.0
// Where a job goes: a print queue, or a PPD alone when there is no server.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "printing/ppd/PPDDocument.h"

namespace publishing {

// Opening a queue asks the print server and may take seconds when that is far away: not to be done
// on the thread of a user interface. The object may then be handed to another thread; it keeps no
// connection.
class Printer {
 public:
  // Throw PrintError: see findQueue, findDefaultQueue and PPDDocument. `name` is that of a queue or
  // "queue/instance"; see QueueName.
  static Printer openQueue(const std::string& name);
  static Printer openDefaultQueue();
  static Printer openPPD(const std::string& path);

  // The queue's name, or the path of the PPD.
  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] bool isQueue() const { return isQueue_; }

  // Of the queue's options that are meant; mostly empty.
  [[nodiscard]] const std::string& instance() const { return instance_; }

  // What keeps the queue from printing a job at once, for the user; empty when nothing does.
  struct Obstacles {
    std::string rejects;  // no job is taken
    std::string waits;    // jobs are taken and wait
  };
  [[nodiscard]] const Obstacles& obstacles() const { return obstacles_; }

  // Null when the queue has no PPD.
  [[nodiscard]] PPDDocument* ppd() { return ppd_ ? &*ppd_ : nullptr; }
  [[nodiscard]] const PPDDocument* ppd() const { return ppd_ ? &*ppd_ : nullptr; }

  // For PDEPluginCallback::ppdFile; null when there is no PPD.
  [[nodiscard]] ppd_file_t* ppdFile() const { return ppd_ ? ppd_->get() : nullptr; }

  // For the user: what is wrong with the printer's PPD, or that it has none.
  [[nodiscard]] std::vector<std::string> warnings() const;

  // The queue's and the user's default job options (lpoptions); empty for a PPD alone.
  [[nodiscard]] const JobTicket::Options& defaults() const { return defaults_; }

  // A ticket that states what a job has without the user's doing, as far as the panel asks for it:
  // sides, number-up and output order.
  [[nodiscard]] JobTicket newTicket() const;

  // Renews all marks: the PPD's defaults, then defaults(), then the ticket. Does nothing without a
  // PPD. Throws as JobTicket::jobOptions does.
  void mark(const JobTicket& ticket);

  // What a job with this ticket is sent with: defaults(), and over them the ticket. Throws as
  // JobTicket::jobOptions does, and PrintError (Refused) when the ticket names a choice of the
  // PPD's options "CoverMediaType" and "PageMediaType" that the PPD does not have.
  [[nodiscard]] JobTicket::Options jobOptions(const JobTicket& ticket) const;

 private:
  Printer(std::string name, bool isQueue, std::optional<PPDDocument> ppd,
          JobTicket::Options defaults);
  static Printer fromDestination(http_t* http, const cups_dest_t& destination);

  std::string name_;
  bool isQueue_;
  std::string instance_;
  Obstacles obstacles_;
  std::optional<PPDDocument> ppd_;
  JobTicket::Options defaults_;
  std::optional<Sides> defaultSides_;  // of the PPD's marks before any ticket
  bool defaultIsReverse_ = false;      // of the same
};

}  // namespace publishing

// SPDX-License-Identifier: Apache-2.0
// Sending a job to a print queue.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "printing/Document.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"

namespace publishing {

// Told the bytes of the job sent so far and in all, at least once with both equal. Answers whether
// to go on; false cancels the job.
using SendProgress = std::function<bool(std::uint64_t sent, std::uint64_t total)>;

// Sends the documents, one or more (each from its beginning to its end, once), as one job of
// `printer`, which must be a queue, and returns the job's number (1 or more). Does not look at
// conflicts: that is for the caller to do before, with PPDDocument::conflicts. Throws PrintError
// with the server's reason; a job that was created but not sent completely is cancelled, so that
// nothing half-sent prints. Kinds: Refused when the ticket or the title (checkJobTitle) cannot be
// sent, the server refused the job, `progress` cancelled it, or the queue got another PPD since
// `printer` was opened; Usage for a printer without a queue; Trouble otherwise.
int submit(const Printer& printer, const JobTicket& ticket, std::span<Document> documents,
           const std::string& title, const SendProgress& progress = {});

// Throws PrintError (Refused) unless the text can be a job's title: 1 to 255 bytes of UTF-8 without
// control characters.
void checkJobTitle(const std::string& title);

}  // namespace publishing

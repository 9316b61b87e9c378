// SPDX-License-Identifier: Apache-2.0
#include "printing/Submission.h"

#include <algorithm>
#include <array>
#include <utility>

#include <glib.h>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/PrintServer.h"

namespace publishing {
namespace {

constexpr std::size_t kLongestTitle = 255;  // bytes of an IPP name
constexpr std::size_t kBufferSize = 65536;

// A server that says no refused; one that cannot is in trouble.
PrintError serverError(const std::string& what) {
  const ipp_status_t status = cupsLastError();
  const bool refused =
      (status >= IPP_STATUS_ERROR_BAD_REQUEST && status < IPP_STATUS_ERROR_INTERNAL &&
       status != IPP_STATUS_ERROR_NOT_FOUND) ||
      status == IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS;
  return {refused ? PrintError::Kind::Refused : PrintError::Kind::Trouble,
          translated("%s: %s (print server %s)", what, serverReason(), serverName())};
}

// A job on the server that is cancelled unless its document arrived completely.
class UnfinishedJob {
 public:
  UnfinishedJob(http_t* http, cups_dest_t* queue, const CupsOptions& options,
                const std::string& title)
      : http_(http), queue_(queue), info_(cupsCopyDestInfo(http, queue)) {
    if (!info_) {
      throw serverError(translated("The queue %s cannot be used", queue->name));
    }
    if (cupsCreateDestJob(http, queue, info_.get(), &number_, title.c_str(), options.count(),
                          options.get()) > IPP_STATUS_OK_EVENTS_COMPLETE) {
      number_ = 0;
      throw serverError(translated("The queue %s did not accept the job", queue->name));
    }
  }
  // Over a connection of its own: this one may stand in the middle of the document. Without a
  // server there is nothing to cancel.
  ~UnfinishedJob() {
    if (number_ == 0) return;
    try {
      const HttpHandle http = connectToServer();
      httpShutdown(http_);
      cupsCancelJob2(http.get(), queue_->name, number_, 0);
    } catch (const PrintError&) {
      return;
    }
  }
  UnfinishedJob(const UnfinishedJob&) = delete;
  UnfinishedJob& operator=(const UnfinishedJob&) = delete;

  void send(std::span<Document> documents, const SendProgress& progress) {
    std::uint64_t total = 0;
    for (const Document& document : documents)
      total += document.size();
    Upload upload = {progress, 0, total};
    for (Document& document : documents)
      send(document, &document == &documents.back(), upload);
  }

  // The job is the printer's from now on.
  int release() { return std::exchange(number_, 0); }

 private:
  struct Upload {
    const SendProgress& progress;
    std::uint64_t sent;
    std::uint64_t total;

    // A file may have grown since it was opened.
    void add(std::uint64_t length) {
      sent += length;
      if (progress && !progress(sent, std::max(sent, total))) {
        throw PrintError::refused(translated("The job was cancelled."));
      }
    }
  };

  void send(Document& document, bool isLast, Upload& upload) {
    if (cupsStartDestDocument(http_, queue_, info_.get(), number_, document.defaultTitle().c_str(),
                              document.format(), 0, nullptr,
                              isLast ? 1 : 0) != HTTP_STATUS_CONTINUE) {
      throw serverError(translated("The queue %s did not accept the document %s", queue_->name,
                                   shown(document.name())));
    }
    std::array<char, kBufferSize> buffer{};
    while (const std::size_t length = document.read(buffer.data(), buffer.size())) {
      if (cupsWriteRequestData(http_, buffer.data(), length) != HTTP_STATUS_CONTINUE) {
        throw serverError(translated("%s could not be sent completely", shown(document.name())));
      }
      upload.add(length);
    }
    if (cupsFinishDestDocument(http_, queue_, info_.get()) > IPP_STATUS_OK_EVENTS_COMPLETE) {
      throw serverError(translated("%s could not be sent completely", shown(document.name())));
    }
  }

  http_t* http_;
  cups_dest_t* queue_;
  DestinationInfoHandle info_;
  int number_ = 0;
};

// The choices were made from the PPD that was opened; in another one they may be missing or mean
// something else.
void checkSamePPD(http_t* http, const Printer& printer) {
  if (printer.ppd() == nullptr || printer.ppd()->isStillThatOf(http, printer.name())) return;
  throw PrintError::refused(
      translated("The driver of the queue %s has changed in the meantime. Check your choices, then "
                 "print again.",
                 printer.name()));
}

}  // namespace

int submit(const Printer& printer, const JobTicket& ticket, std::span<Document> documents,
           const std::string& title, const SendProgress& progress) {
  if (!printer.isQueue()) {
    throw PrintError::usage(
        translated("%s is not a print queue: name one, or give the name of an output file.",
                   shown(printer.name())));
  }
  checkJobTitle(title);
  const CupsOptions options(printer.jobOptions(ticket));
  const HttpHandle http = connectToServer();
  const DestinationHandle queue = findQueue(http.get(), {printer.name(), printer.instance()});
  checkSamePPD(http.get(), printer);
  UnfinishedJob job(http.get(), queue.get(), options, title);
  job.send(documents, progress);
  return job.release();
}

void checkJobTitle(const std::string& title) {
  const bool valid =
      !title.empty() && title.size() <= kLongestTitle &&
      g_utf8_validate(title.data(), static_cast<gssize>(title.size()), nullptr) &&
      std::none_of(title.begin(), title.end(), [](char byte) { return g_ascii_iscntrl(byte); });
  if (valid) return;
  throw PrintError::refused(translated(
      "\"%s\" cannot be the title of a job: use 1 to 255 bytes of UTF-8 text on one line.",
      shown(title)));
}

}  // namespace publishing

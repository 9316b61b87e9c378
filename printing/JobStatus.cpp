// SPDX-License-Identifier: Apache-2.0
#include "printing/JobStatus.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <thread>

#include <cups/cups.h>

#include "base/Translation.h"
#include "printing/CupsHandles.h"
#include "printing/PrintError.h"
#include "printing/PrintServer.h"

namespace publishing {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kFirstPause{50};
constexpr milliseconds kLongestPause{1000};

const char* wordsFor(ipp_jstate_t state) {
  switch (state) {
    case IPP_JSTATE_PENDING:
      return N_("Job %d is waiting");
    case IPP_JSTATE_HELD:
      return N_("Job %d is held");
    case IPP_JSTATE_PROCESSING:
      return N_("Job %d is being printed");
    case IPP_JSTATE_STOPPED:
      return N_("Job %d is stopped");
    case IPP_JSTATE_CANCELED:
      return N_("Job %d was cancelled");
    case IPP_JSTATE_ABORTED:
      return N_("Job %d failed");
    case IPP_JSTATE_COMPLETED:
      return N_("Job %d is done");
  }
  return N_("Job %d is in an unknown state");
}

IppHandle askAttributes(http_t* http, int job) {
  static const char* const kWanted[] = {"job-state", "job-state-reasons",
                                        "job-printer-state-message"};
  const std::string uri = "ipp://localhost/jobs/" + std::to_string(job);
  ipp_t* request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.c_str());
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
  ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(std::size(kWanted)), nullptr, kWanted);
  return IppHandle(cupsDoRequest(http, request, "/jobs/"));
}

PrintError noState(int job, const std::string& reason) {
  return PrintError::trouble(translated(
      "The print server %s does not report the state of job %d: %s", serverName(), job, reason));
}

// Nothing when the server does not know the job.
std::optional<JobStatus> statusFrom(ipp_t* response, int job) {
  JobStatus status;
  status.job = job;
  if (cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) return std::nullopt;
  if (cupsLastError() > IPP_STATUS_OK_EVENTS_COMPLETE) throw noState(job, serverReason());
  ipp_attribute_t* state = ippFindAttribute(response, "job-state", IPP_TAG_ENUM);
  if (state == nullptr) throw noState(job, translated("its answer names none."));
  status.state = static_cast<ipp_jstate_t>(ippGetInteger(state, 0));
  ipp_attribute_t* reasons = ippFindAttribute(response, "job-state-reasons", IPP_TAG_KEYWORD);
  for (int i = 0; i < ippGetCount(reasons); ++i) {
    const std::string reason = ippGetString(reasons, i, nullptr);
    // "job-printing" says no more than the state does.
    if (reason != "none" && reason != "job-printing") status.reasons.push_back(reason);
  }
  ipp_attribute_t* message = ippFindAttribute(response, "job-printer-state-message", IPP_TAG_TEXT);
  if (message != nullptr) status.message = shown(ippGetString(message, 0, nullptr));
  return status;
}

// Whether to go on afterwards.
bool pauseFor(milliseconds length, const std::function<bool()>& goesOn) {
  for (milliseconds slice; length > milliseconds(0); length -= slice) {
    if (goesOn && !goesOn()) return false;
    slice = std::min(length, kFirstPause);
    std::this_thread::sleep_for(slice);
  }
  return !goesOn || goesOn();
}

}  // namespace

std::string JobStatus::text() const {
  if (isForgotten) {
    return translated("Job %d has left the print server, which keeps no record of how jobs end.",
                      job);
  }
  std::string line = translated(wordsFor(state), job);
  std::string details;
  if (!isCompleted()) {
    for (const std::string& reason : reasons)
      details += (details.empty() ? "" : ", ") + shown(reason);
    if (!message.empty()) details += (details.empty() ? "" : "; ") + message;
  }
  return details.empty() ? line : line + ": " + details;
}

JobStatus askJobStatus(int job) {
  const HttpHandle http = connectToServer();
  const auto status = statusFrom(askAttributes(http.get(), job).get(), job);
  if (!status) throw noState(job, translated("it knows no such job."));
  return *status;
}

// The server has no call that waits for a job, so it is asked again and again, less often with
// time.
JobStatus followJob(int job, const JobFollower& follower) {
  std::optional<JobStatus> last;
  const HttpHandle http = connectToServer();
  for (milliseconds pause = kFirstPause;; pause = std::min(pause * 3 / 2, kLongestPause)) {
    auto status = statusFrom(askAttributes(http.get(), job).get(), job);
    if (!status) {
      status = last.value_or(JobStatus());
      status->job = job;
      status->isForgotten = true;
    }
    if (status != last && follower.changed) follower.changed(*status);
    if (status->isOver() || !pauseFor(pause, follower.goesOn)) return *status;
    last = std::move(status);
  }
}

}  // namespace publishing

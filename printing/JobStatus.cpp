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

JobStatus statusFrom(ipp_t* response, int job) {
  JobStatus status;
  status.job = job;
  ipp_attribute_t* state = ippFindAttribute(response, "job-state", IPP_TAG_ENUM);
  if (state == nullptr || cupsLastError() > IPP_STATUS_OK_EVENTS_COMPLETE) {
    throw PrintError::trouble(
        translated("The print server %s does not report the state of job %d: %s", serverName(), job,
                   cupsLastErrorString()));
  }
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

}  // namespace

std::string JobStatus::text() const {
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
  return statusFrom(askAttributes(http.get(), job).get(), job);
}

// The server has no call that waits for a job, so it is asked again and again, less often with
// time.
JobStatus followJob(int job, const std::function<bool(const JobStatus&)>& changed) {
  std::optional<JobStatus> last;
  const HttpHandle http = connectToServer();
  for (milliseconds pause = kFirstPause;; pause = std::min(pause * 3 / 2, kLongestPause)) {
    JobStatus status = statusFrom(askAttributes(http.get(), job).get(), job);
    const bool goOn = status == last || !changed || changed(status);
    if (status.isOver() || !goOn) return status;
    last = std::move(status);
    std::this_thread::sleep_for(pause);
  }
}

}  // namespace publishing

// SPDX-License-Identifier: Apache-2.0
#include "printing/PrintServer.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <vector>

#include <glib.h>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

constexpr int kConnectMilliseconds = 5000;
constexpr double kAnswerSeconds = 15;
constexpr std::size_t kLongestQueueName = 127;

// libcups asks what to do when the server is silent: give up.
int giveUp(http_t*, void*) {
  return 0;
}

PrintError noAnswer() {
  return PrintError::trouble(
      translated("The print server %s does not respond properly: %s. Check that it is running.",
                 serverName(), serverReason()));
}

// libcups answers that there are no queues both when there are none and when the server is silent
// or in trouble. So it is asked something that every server answers, and in few words: it would
// tell all that it knows of the default queue, which takes longer than all else that is asked here.
void checkAnswers(http_t* http) {
  ipp_t* question = ippNewRequest(IPP_OP_CUPS_GET_DEFAULT);
  ippAddString(question, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
               "printer-name");
  ippDelete(cupsDoRequest(http, question, "/"));
  switch (cupsLastError()) {
    case IPP_STATUS_OK:
    case IPP_STATUS_OK_IGNORED_OR_SUBSTITUTED:
    case IPP_STATUS_OK_CONFLICTING:
    case IPP_STATUS_ERROR_NOT_FOUND:                // it has no default queue
    case IPP_STATUS_ERROR_OPERATION_NOT_SUPPORTED:  // it is no CUPS server
      return;
    default:
      throw noAnswer();
  }
}

}  // namespace

std::string serverName() {
  const std::string server = shown(cupsServer());
  if (server.starts_with('/')) return server;
  return server + ":" + std::to_string(ippPort());
}

// libcups gives "Success" for the reason when a server was silent for too long.
std::string serverReason() {
  const std::string reason = shown(cupsLastErrorString());
  return reason == g_strerror(0) ? translated("there was no answer") : reason;
}

HttpHandle connectToServer() {
  HttpHandle http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                               kConnectMilliseconds, nullptr));
  if (!http) {
    throw PrintError::trouble(
        translated("The print server %s cannot be reached: %s. Start it (service cups start) or "
                   "set CUPS_SERVER to another one.",
                   serverName(), serverReason()));
  }
  httpSetTimeout(http.get(), kAnswerSeconds, giveUp, nullptr);
  return http;
}

std::vector<std::string> knownQueues(http_t* http) {
  checkAnswers(http);
  cups_dest_t* destinations = nullptr;
  const int count = cupsGetDests2(http, &destinations);
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    if (destinations[i].instance == nullptr) names.emplace_back(destinations[i].name);
  }
  cupsFreeDests(count, destinations);
  std::sort(names.begin(), names.end());
  return names;
}

namespace {

// "Known queues: A, B.", or that there are none.
std::string remedyFor(http_t* http) {
  const std::vector<std::string> queues = knownQueues(http);
  if (queues.empty()) return translated("The server has no queues; add one with lpadmin.");
  std::string list;
  for (const std::string& queue : queues)
    list += (list.empty() ? "" : ", ") + shown(queue);
  return translated("Known queues: %s.", list);
}

// libcups makes up an instance that nobody has.
bool hasInstance(http_t* http, const QueueName& name) {
  cups_dest_t* destinations = nullptr;
  const int count = cupsGetDests2(http, &destinations);
  const bool found =
      cupsGetDest(name.queue.c_str(), name.instance.c_str(), count, destinations) != nullptr;
  cupsFreeDests(count, destinations);
  return found;
}

}  // namespace

DestinationHandle findQueue(http_t* http, const QueueName& name) {
  checkAnswers(http);
  const char* instance = name.instance.empty() ? nullptr : name.instance.c_str();
  DestinationHandle destination(cupsGetNamedDest(http, name.queue.c_str(), instance));
  if (destination && instance != nullptr && !hasInstance(http, name)) {
    throw PrintError::trouble(
        translated("The queue %s has no instance %s; make one with lpoptions -p %s/%s -o OPTION.",
                   name.queue, name.instance, name.queue, name.instance));
  }
  if (destination) return destination;
  throw PrintError::trouble(translated("The print server %s has no queue %s. %s", serverName(),
                                       name.queue, remedyFor(http)));
}

DestinationHandle findDefaultQueue(http_t* http) {
  checkAnswers(http);
  DestinationHandle destination(cupsGetNamedDest(http, nullptr, nullptr));
  if (destination) return destination;
  for (const char* variable : {"LPDEST", "PRINTER"}) {
    const char* wish = std::getenv(variable);
    // libcups knows this name as that of no queue.
    if (wish == nullptr || std::string_view(wish) == "lp") continue;
    throw PrintError::trouble(translated(
        "The print server %s has no queue %s, which the environment variable %s names. %s",
        serverName(), shown(wish), variable, remedyFor(http)));
  }
  throw PrintError::trouble(
      translated("There is no default print queue on %s: name a queue, or set a "
                 "default with lpoptions -d. %s",
                 serverName(), remedyFor(http)));
}

QueueName QueueName::parse(const std::string& text) {
  const std::size_t slash = std::min(text.find('/'), text.size());
  QueueName name = {text.substr(0, slash), text.substr(std::min(slash + 1, text.size()))};
  checkQueueName(name.queue);
  if (slash < text.size()) checkQueueName(name.instance);
  return name;
}

void checkQueueName(const std::string& name) {
  const bool valid = !name.empty() && name.size() <= kLongestQueueName &&
                     g_utf8_validate(name.data(), static_cast<gssize>(name.size()), nullptr) &&
                     shown(name) == name && std::none_of(name.begin(), name.end(), [](char byte) {
                       return std::string_view(" /\\?'\"#").find(byte) != std::string_view::npos;
                     });
  if (valid) return;
  throw PrintError::usage(
      translated("\"%s\" cannot be the name of a print queue: use 1 to 127 bytes without spaces, "
                 "slashes, quotes, \"?\" or \"#\".",
                 shown(name)));
}

}  // namespace publishing

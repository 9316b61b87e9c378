// SPDX-License-Identifier: Apache-2.0
// The CUPS server that libcups is configured for: CUPS_SERVER, client.conf or the local one.
#pragma once

#include <string>
#include <vector>

#include "printing/CupsHandles.h"

namespace publishing {

// A connection of its own, for use by one thread. Waits at most some seconds for a server that does
// not answer. Throws PrintError (Trouble), naming the server and the remedy.
HttpHandle connectToServer();

// The server as libcups names it, for messages: a host with its port, or the path of a socket.
std::string serverName();

// Why the last call of libcups on this thread failed, for messages.
std::string serverReason();

// A print queue, and one of the sets of default options (instances, as in "queue/draft") that its
// users keep with lpoptions.
struct QueueName {
  std::string queue;
  std::string instance;  // empty: the options without a name

  // Throws PrintError (Usage) for what cannot be the name of a queue or of an instance.
  static QueueName parse(const std::string& text);
};

// The queue with the queue's and the user's default options (lpoptions). Throws PrintError
// (Trouble) when the server has none of that name (the message lists those it has) or the user no
// such instance, and when the server does not answer or answers with an error.
DestinationHandle findQueue(http_t* http, const QueueName& name);

// The user's default queue (LPDEST, PRINTER, lpoptions), else the server's. Throws PrintError
// (Trouble) when there is none, or none of the name that the user's default has.
DestinationHandle findDefaultQueue(http_t* http);

// The names of the server's queues, sorted. Throws PrintError (Trouble) when the server does not
// answer or answers with an error.
std::vector<std::string> knownQueues(http_t* http);

// Throws PrintError (Usage) unless the text can be the name of a print queue: 1 to 127 bytes of
// UTF-8 without blanks, control characters and / \ ? ' " #.
void checkQueueName(const std::string& name);

}  // namespace publishing

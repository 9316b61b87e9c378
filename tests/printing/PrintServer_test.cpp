// SPDX-License-Identifier: Apache-2.0
#include "printing/PrintServer.h"

#include <cstdlib>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "printing/Printer.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

// Answers whatever it is asked with the same bytes; an empty answer closes the connection.
class OddServer {
 public:
  explicit OddServer(std::string answer) : answer_(std::move(answer)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    bind(socket_, reinterpret_cast<sockaddr*>(&address), length);
    listen(socket_, 8);
    getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length);
    name_ = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    setenv("CUPS_SERVER", name_.c_str(), 1);
    cupsSetServer(nullptr);
    thread_ = std::thread([this] { serve(); });
  }
  ~OddServer() {
    shutdown(socket_, SHUT_RDWR);
    thread_.join();
    close(socket_);
    unsetenv("CUPS_SERVER");
    cupsSetServer(nullptr);
  }
  OddServer(const OddServer&) = delete;
  OddServer& operator=(const OddServer&) = delete;

  [[nodiscard]] const std::string& name() const { return name_; }

 private:
  void serve() {
    for (int client = accept(socket_, nullptr, nullptr); client >= 0;
         client = accept(socket_, nullptr, nullptr)) {
      char buffer[4096];
      while (recv(client, buffer, sizeof buffer, 0) > 0 && !answer_.empty() &&
             send(client, answer_.data(), answer_.size(), MSG_NOSIGNAL) > 0) {
      }
      close(client);
    }
  }

  std::string answer_;
  int socket_ = socket(AF_INET, SOCK_STREAM, 0);
  std::string name_;
  std::thread thread_;
};

TEST(PrintServer, ThatDoesNotAnswerIsNotOneWithoutQueues) {
  const std::string refusal("\x02\x00\x05\x00\x00\x00\x00\x01\x03", 9);  // an internal error
  for (const std::string& answer :
       {std::string("HTTP/1.1 500 Internal Server Error\r\nContent-Length: 0\r\n\r\n"),
        "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\nContent-Length: 9\r\n\r\n" + refusal,
        std::string("HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n"),
        std::string("hello\r\n\r\n"), std::string()}) {
    const OddServer server(answer);
    for (const auto& open : {std::function<void()>([] { Printer::openQueue("Office"); }),
                             std::function<void()>([] { Printer::openDefaultQueue(); })}) {
      const PrintError error = errorOf(open);
      EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
      EXPECT_THAT(error.what(),
                  AllOf(HasSubstr(server.name()), HasSubstr("does not respond properly"),
                        Not(HasSubstr("has no queue")), Not(HasSubstr("Success"))))
          << answer;
    }
  }
}

TEST(PrintServer, QueuesMayBeNamedWithAnInstance) {
  EXPECT_EQ(QueueName::parse("Office").queue, "Office");
  EXPECT_EQ(QueueName::parse("Office").instance, "");
  EXPECT_EQ(QueueName::parse("Office/draft").queue, "Office");
  EXPECT_EQ(QueueName::parse("Office/draft").instance, "draft");
  for (const char* name : {"", "/", "Office/", "/draft", "Office/a/b", "Office/a b", "a\u202eb"})
    EXPECT_EQ(errorOf([&] { (void)QueueName::parse(name); }).kind(), PrintError::Kind::Usage)
        << name;
}

}  // namespace
}  // namespace publishing

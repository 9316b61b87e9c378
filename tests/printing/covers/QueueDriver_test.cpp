// SPDX-License-Identifier: Apache-2.0
// Against a real print server that has no filter for covers.
#include "printing/covers/QueueDriver.h"

#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/PrintServer.h"
#include "printing/covers/CoversPPD.h"
#include "tests/cups/PrivateCups.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kQueue = "Covers";

void lpadmin(const std::string& arguments) {
  const std::string command = "/usr/sbin/lpadmin " + arguments + " 2>/dev/null";
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

class QueueDriverTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { PrivateCups::instance().addQueue(kQueue, kSamplePPD); }

  [[nodiscard]] QueueDriver driver(const std::string& queue = kQueue) const {
    return {http_.get(), queue};
  }

  HttpHandle http_ = connectToServer();
};

TEST_F(QueueDriverTest, HasTheQueuesPPD) {
  EXPECT_EQ(driver().ppd(), contentsOfFile(kSamplePPD));
}

TEST_F(QueueDriverTest, ReplacesThePPDAndNothingElse) {
  lpadmin("-p Other -E -v file:/dev/null -D 'On the left' -L 'Room 1' -P " + kSamplePPD +
          " -o job-sheets-default=standard,none -o printer-error-policy=abort-job");
  const auto attributes = [this] {
    const DestinationHandle queue = findQueue(http_.get(), {"Other", {}});
    std::map<std::string, std::string> map;
    for (int i = 0; i < queue->num_options; ++i)
      map[queue->options[i].name] = queue->options[i].value;
    for (const char* changing :
         {"printer-config-change-time", "printer-state-change-time",
          "printer-state-change-date-time", "printer-config-change-date-time", "printer-up-time"})
      map.erase(changing);
    return map;
  };
  const auto before = attributes();
  EXPECT_EQ(before.at("printer-info"), "On the left");
  EXPECT_EQ(before.at("job-sheets"), "standard,none");
  const std::string changed = changedPPD("*InputSlot Tray4/Tray 4:", "*InputSlot Tray4/Tray IV:");
  driver("Other").replacePPD(changed);
  EXPECT_EQ(driver("Other").ppd(), changed);
  EXPECT_EQ(attributes(), before);
}

TEST_F(QueueDriverTest, GivesThePPDBackWhenTheServerHasNoFilterForCovers) {
  QueueDriver covers = driver();
  const PrintError error =
      errorOf([&] { covers.replacePPD(withCovers(contentsOfFile(kSamplePPD))); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), AllOf(HasSubstr("publishingtops"), HasSubstr("publishing-printer")));
  EXPECT_EQ(covers.ppd(), contentsOfFile(kSamplePPD));
  EXPECT_EQ(driver().ppd(), contentsOfFile(kSamplePPD));
}

TEST_F(QueueDriverTest, SaysWhoMayChangeQueues) {
  QueueDriver covers = driver();
  cupsSetUser("mallory");
  cupsSetPasswordCB2([](const char*, http_t*, const char*, const char*,
                        void*) { return static_cast<const char*>(nullptr); },
                     nullptr);
  const PrintError error = errorOf([&] { covers.replacePPD(changedPPD("Tray 4", "Tray IV")); });
  cupsSetPasswordCB2(nullptr, nullptr);
  cupsSetUser(nullptr);
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), AllOf(HasSubstr("lpadmin"), HasSubstr("sudo")));
  EXPECT_EQ(driver().ppd(), contentsOfFile(kSamplePPD));
}

TEST_F(QueueDriverTest, SaysWhatTheServerHasAgainstThePPD) {
  QueueDriver covers = driver();
  EXPECT_EQ(errorOf([&] { covers.replacePPD("no PPD"); }).kind(), PrintError::Kind::Trouble);
  EXPECT_EQ(driver().ppd(), contentsOfFile(kSamplePPD));
}

TEST_F(QueueDriverTest, RefusesWhatHasNoDriverOfItsOwn) {
  lpadmin("-p Raw -E -v file:/dev/null");
  lpadmin("-p Covers -c Together");
  const struct {
    const char* queue;
    const char* reason;
  } table[] = {{"Raw", "no driver"}, {"Together", "class"}};
  for (const auto& row : table) {
    const PrintError error = errorOf([&] { (void)driver(row.queue); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Refused) << row.queue;
    EXPECT_THAT(error.what(), HasSubstr(row.reason));
  }
}

TEST_F(QueueDriverTest, NamesTheQueuesWhenOneIsUnknown) {
  EXPECT_THAT(errorOf([&] { (void)driver("Nowhere"); }).what(),
              AllOf(HasSubstr("Nowhere"), HasSubstr(kQueue)));
  EXPECT_EQ(errorOf([&] { (void)driver("a b"); }).kind(), PrintError::Kind::Usage);
}

}  // namespace
}  // namespace publishing

// SPDX-License-Identifier: Apache-2.0
// Against a real print server: see tests/cups/PrivateCups.h.
#include "printing/Submission.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include <cups/cups.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include "Publishing/PublishingKeys.h"
#include "base/Descriptor.h"
#include "printing/JobStatus.h"
#include "printing/PrintServer.h"
#include "tests/cups/PrivateCups.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Ne;
using ::testing::Not;
using ::testing::Pair;

const auto* const environment = ::testing::AddGlobalTestEnvironment(new PrivateCups);

constexpr const char* kQueue = "Zephrel_PS_9000";

// The job's attributes on the server, as text.
std::map<std::string, std::string> attributesOf(int job) {
  ipp_t* request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
  const std::string uri = "ipp://localhost/jobs/" + std::to_string(job);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.c_str());
  const HttpHandle http = connectToServer();
  const IppHandle response(cupsDoRequest(http.get(), request, "/jobs/"));
  std::map<std::string, std::string> attributes;
  for (ipp_attribute_t* attribute = ippFirstAttribute(response.get()); attribute != nullptr;
       attribute = ippNextAttribute(response.get())) {
    std::string value(2048, '\0');
    value.resize(ippAttributeString(attribute, value.data(), value.size()));
    if (ippGetName(attribute) != nullptr) attributes[ippGetName(attribute)] = value;
  }
  return attributes;
}

// PostScript that is sent in several pieces.
std::string largePostScript() {
  std::string padding;
  while (padding.size() < 500000)
    padding += "% padding\n";
  return kSamplePostScript + padding;
}

int jobsOnServer() {
  cups_job_t* jobs = nullptr;
  const int count = cupsGetJobs2(connectToServer().get(), &jobs, nullptr, 0, CUPS_WHICHJOBS_ALL);
  cupsFreeJobs(count, jobs);
  return count;
}

class Submission : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { PrivateCups::instance().addQueue(kQueue, kSamplePPD); }

  void TearDown() override {
    for (const char* file : {"/fail", "/block"})
      std::filesystem::remove(cups_.out() + file);
  }

  // A file in the user's own folder.
  [[nodiscard]] Document sample() const {
    return Document(folder_.file("sample.ps", kSamplePostScript));
  }

  int print(const Printer& printer, const JobTicket& ticket, const std::string& title = "Title") {
    Document document = sample();
    return submit(printer, ticket, {&document, 1}, title);
  }

  PrivateCups& cups_ = PrivateCups::instance();
  TemporaryFolder folder_;
};

TEST_F(Submission, OptionsReachThePostScriptTheFiltersAndTheJob) {
  const Printer printer = Printer::openQueue(kQueue);
  EXPECT_THAT(printer.warnings(), IsEmpty());
  JobTicket ticket = printer.newTicket();
  ticket.setSides(Sides::TwoSidedLongEdge);
  ticket.setValue(cCoverMediaType, "Tray2");
  ticket.setValue(cPageMediaType, "Tray3");
  ticket.setValue(kCoverModeState, "On");
  ticket.setValue(kPageinsertNums, "5,8,12,13,14,");
  Document document(folder_.file("sample.pdf", samplePDF(3)));
  const int job = submit(printer, ticket, {&document, 1}, "Title");
  EXPECT_TRUE(followJob(job).isCompleted());
  EXPECT_THAT(cups_.received(job, "data"),
              AllOf(HasSubstr("%%BeginFeature: *CoverMediaType Tray2"),
                    HasSubstr("%%BeginFeature: *PageMediaType Tray3"),
                    HasSubstr("%%BeginFeature: *Duplex DuplexNoTumble")));
  EXPECT_THAT(cups_.receivedOptions(job),
              AllOf(Contains(Pair(cCoverMediaType, "Tray2")), Contains(Pair(kCoverModeState, "On")),
                    Contains(Pair(kPageinsertNums, "5,8,12,13,14,"))));
  EXPECT_THAT(attributesOf(job),
              AllOf(Contains(Pair(cCoverMediaType, "Tray2")), Contains(Pair(kCoverModeState, "On")),
                    Contains(Pair(kPageinsertNums, HasSubstr("5"))),
                    Contains(Pair("sides", "two-sided-long-edge"))));
}

TEST_F(Submission, ValuesArriveByteByByte) {
  const Printer printer = Printer::openQueue(kQueue);
  const std::string values[] = {"a b",
                                "\"quoted\"",
                                "it's",
                                "back\\slash",
                                "end\\",
                                "a{b}",
                                "x Duplex=None",
                                "$(date) `date`",
                                "Größe",
                                "%s%n",
                                std::string(255, 'x')};
  JobTicket ticket = printer.newTicket();
  int number = 0;
  for (const std::string& value : values)
    ticket.setValue("VtTest" + std::to_string(number++), value);
  const int job = print(printer, ticket);
  EXPECT_TRUE(followJob(job).isCompleted());
  const auto options = cups_.receivedOptions(job);
  number = 0;
  for (const std::string& value : values)
    EXPECT_THAT(options, Contains(Pair("VtTest" + std::to_string(number++), value)));
}

TEST_F(Submission, TitlesAreDataOnly) {
  const Printer printer = Printer::openQueue(kQueue);
  for (const char* title : {"it's \"quoted\"", "$(touch x); `y` | z", "-o Duplex=None", "Größe"}) {
    const int job = print(printer, printer.newTicket(), title);
    EXPECT_TRUE(followJob(job).isCompleted());
    EXPECT_THAT(cups_.received(job, "argv"), HasSubstr(std::string(1, '\0') + title + '\0'));
  }
}

TEST_F(Submission, SendsNothingThatCannotArrive) {
  const Printer printer = Printer::openQueue(kQueue);
  const int before = jobsOnServer();
  for (const char* value : {"3\n5", "{a=b}", "true", "\xFF"}) {
    JobTicket ticket = printer.newTicket();
    ticket.setValue(kPageinsertNums, value);
    const PrintError error = errorOf([&] { print(printer, ticket); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
    EXPECT_THAT(error.what(), HasSubstr(kPageinsertNums));
  }
  for (const std::string& title : {std::string(), std::string("a\nb"), std::string(256, 't')}) {
    EXPECT_EQ(errorOf([&] { print(printer, printer.newTicket(), title); }).kind(),
              PrintError::Kind::Refused);
  }
  EXPECT_EQ(jobsOnServer(), before);
}

TEST_F(Submission, TheUsersDefaultsAreMarkedAndSentUnlessTheTicketSaysOtherwise) {
  std::filesystem::create_directory(std::string(std::getenv("HOME")) + "/.cups");
  const std::string options = std::string(std::getenv("HOME")) + "/.cups/lpoptions";
  std::ofstream(options)
      << "Default " << kQueue
      << " Duplex=DuplexTumble InputSlot=Tray4 covermediatype=Tray3 number-up=2 fit-to-page=true\n";
  Printer printer = Printer::openDefaultQueue();
  std::filesystem::remove(options);
  JobTicket ticket = printer.newTicket();
  EXPECT_EQ(ticket.getDuplex(), 3);
  EXPECT_EQ(ticket.getValue(kNup), "1");
  EXPECT_TRUE(printer.ppd()->choice("InputSlot", "Tray4")->marked);
  ticket.setSides(Sides::OneSided);
  ticket.setNumberUp(1);
  ticket.setValue(cCoverMediaType, "Tray2");
  printer.mark(ticket);
  EXPECT_EQ(printer.ppd()->markedSides(), Sides::OneSided);
  const int job = print(printer, ticket);
  EXPECT_TRUE(followJob(job).isCompleted());
  EXPECT_THAT(cups_.received(job, "data"), AllOf(HasSubstr("%%BeginFeature: *InputSlot Tray4"),
                                                 HasSubstr("%%BeginFeature: *CoverMediaType Tray2"),
                                                 HasSubstr("%%BeginFeature: *Duplex None")));
}

TEST_F(Submission, ProgressCountsTheBytes) {
  const Printer printer = Printer::openQueue(kQueue);
  Document document(folder_.file("large.ps", largePostScript()));
  std::uint64_t last = 0;
  const int job = submit(printer, printer.newTicket(), {&document, 1}, "Title",
                         [&](std::uint64_t sent, std::uint64_t total) {
                           EXPECT_GT(sent, last);
                           EXPECT_EQ(total, document.size());
                           last = sent;
                           return true;
                         });
  EXPECT_EQ(last, document.size());
  EXPECT_TRUE(followJob(job).isCompleted());
}

TEST_F(Submission, AJobStoppedHalfwayIsCancelledAndNeverPrints) {
  const Printer printer = Printer::openQueue(kQueue);
  Document document(folder_.file("large.ps", largePostScript()));
  const int before = jobsOnServer();
  const PrintError error = errorOf([&] {
    submit(printer, printer.newTicket(), {&document, 1}, "Half",
           [](std::uint64_t, std::uint64_t) { return false; });
  });
  EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
  cups_job_t* jobs = nullptr;
  const int count = cupsGetJobs2(connectToServer().get(), &jobs, kQueue, 0, CUPS_WHICHJOBS_ALL);
  ASSERT_EQ(count, before + 1);
  const auto half = std::find_if(
      jobs, jobs + count, [](const cups_job_t& job) { return std::string(job.title) == "Half"; });
  ASSERT_NE(half, jobs + count);
  EXPECT_EQ(followJob(half->id).state, IPP_JSTATE_CANCELED);
  EXPECT_EQ(cups_.received(half->id, "data"), "");
  cupsFreeJobs(count, jobs);
}

TEST_F(Submission, AFailingPrinterIsTold) {
  std::ofstream(cups_.out() + "/fail") << "1\nOut of covers\n";
  const Printer printer = Printer::openQueue(kQueue);
  const JobStatus status = followJob(print(printer, printer.newTicket()));
  EXPECT_FALSE(status.isCompleted());
  EXPECT_THAT(status.text(), AllOf(HasSubstr("failed"), HasSubstr("Out of covers")));
}

TEST_F(Submission, FollowingEndsWhenTheCallerWishes) {
  std::ofstream(cups_.out() + "/block") << "";
  const Printer printer = Printer::openQueue(kQueue);
  const int job = print(printer, printer.newTicket());
  std::vector<ipp_jstate_t> states;
  const JobStatus status =
      followJob(job, {.changed = [&](const JobStatus& now) { states.push_back(now.state); },
                      .goesOn = [&] { return states.back() != IPP_JSTATE_PROCESSING; }});
  EXPECT_EQ(status.state, IPP_JSTATE_PROCESSING);
  EXPECT_EQ(states.back(), IPP_JSTATE_PROCESSING);
  std::filesystem::remove(cups_.out() + "/block");
  EXPECT_TRUE(followJob(job).isCompleted());
}

TEST_F(Submission, UnknownJobsAndQueuesAreNamed) {
  EXPECT_THAT(errorOf([] { askJobStatus(99999); }).what(), HasSubstr("99999"));
  const PrintError error = errorOf([] { Printer::openQueue("NoSuchQueue"); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), AllOf(HasSubstr("NoSuchQueue"), HasSubstr(kQueue)));
}

TEST_F(Submission, NamesThatNoQueueCanHaveAreRefusedWithoutAskingTheServer) {
  for (const char* name : {"", "a b", "a/", "/b", "a/b/c", "a\nb", "a#b", "a\"b", "\xFF"}) {
    EXPECT_EQ(errorOf([&] { Printer::openQueue(name); }).kind(), PrintError::Kind::Usage) << name;
  }
}

TEST_F(Submission, AQueueThatRejectsJobsGivesItsReason) {
  cups_.addQueue("Closed", kSamplePPD);
  ASSERT_EQ(std::system("PATH=$PATH:/usr/sbin cupsreject Closed"), 0);
  const Printer printer = Printer::openQueue("Closed");
  const PrintError error = errorOf([&] { print(printer, printer.newTicket()); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
  EXPECT_THAT(error.what(), AllOf(HasSubstr("Closed"), HasSubstr("not accepting")));
}

TEST_F(Submission, AQueueRemovedMeanwhileIsReported) {
  cups_.addQueue("ShortLived", kSamplePPD);
  const Printer printer = Printer::openQueue("ShortLived");
  ASSERT_EQ(std::system("PATH=$PATH:/usr/sbin lpadmin -x ShortLived"), 0);
  const PrintError error = errorOf([&] { print(printer, printer.newTicket()); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), HasSubstr("ShortLived"));
}

TEST_F(Submission, APPDReplacedOrRemovedMeanwhileStopsTheJob) {
  const TemporaryFolder ppds;
  const std::string other =
      ppds.file("other.ppd", changedPPD("*CoverMediaType Tray4/", "*CoverMediaType Tray9/"));
  for (const std::string& change :
       {"-P " + other, std::string("-m raw 2>/dev/null"), std::string("-x Changing")}) {
    const std::string queue = change == "-x Changing" ? change : "-p Changing " + change;
    cups_.addQueue("Changing", kSamplePPD);
    const Printer printer = Printer::openQueue("Changing");
    JobTicket ticket = printer.newTicket();
    ticket.setValue(cCoverMediaType, "Tray4");
    const int before = jobsOnServer();
    ASSERT_EQ(std::system(("PATH=$PATH:/usr/sbin lpadmin " + queue).c_str()), 0);
    EXPECT_THAT(errorOf([&] { print(printer, ticket); }).what(), HasSubstr("Changing")) << change;
    EXPECT_EQ(jobsOnServer(), before);
    // The PPD that was opened is still whole.
    EXPECT_THAT(printer.ppd()->choice(cCoverMediaType, "Tray4"), Ne(std::nullopt));
  }
}

// A program that is killed meanwhile could not remove one.
TEST_F(Submission, OpeningAQueueMakesNoTemporaryFile) {
  const TemporaryFolder temporary;
  const Descriptor watch(inotify_init1(IN_NONBLOCK));
  ASSERT_GE(inotify_add_watch(watch.get(), temporary.path().c_str(), IN_CREATE), 0);
  const char* before = std::getenv("TMPDIR");
  const std::string kept = before != nullptr ? before : "/tmp";
  setenv("TMPDIR", temporary.path().c_str(), 1);
  const int job = print(Printer::openQueue(kQueue), JobTicket());
  setenv("TMPDIR", kept.c_str(), 1);
  EXPECT_GT(job, 0);
  std::array<char, 4096> events{};
  EXPECT_LT(read(watch.get(), events.data(), events.size()), 0) << "a file was made";
}

TEST_F(Submission, AClassOfQueuesHasThePPDOfItsFirst) {
  ASSERT_EQ(std::system(("PATH=$PATH:/usr/sbin lpadmin -p " + std::string(kQueue) +
                         " -c Class 2>/dev/null && PATH=$PATH:/usr/sbin cupsenable Class && "
                         "PATH=$PATH:/usr/sbin cupsaccept Class")
                            .c_str()),
            0);
  const Printer printer = Printer::openQueue("Class");
  ASSERT_NE(printer.ppd(), nullptr);
  EXPECT_THAT(printer.ppd()->choice(cCoverMediaType, "Tray2"), Ne(std::nullopt));
}

TEST_F(Submission, AQueueWithoutPPDIsUsableWithAWarning) {
  ASSERT_EQ(std::system("PATH=$PATH:/usr/sbin lpadmin -p Raw -E -v file:///dev/null 2>/dev/null"),
            0);
  const Printer printer = Printer::openQueue("Raw");
  EXPECT_EQ(printer.ppdFile(), nullptr);
  EXPECT_THAT(printer.warnings(), Contains(HasSubstr("Raw")));
  EXPECT_EQ(printer.newTicket().getDuplex(), 1);
}

TEST_F(Submission, APPDAloneTakesNoJobs) {
  EXPECT_EQ(errorOf([&] { print(Printer::openPPD(kSamplePPD), JobTicket()); }).kind(),
            PrintError::Kind::Usage);
}

TEST_F(Submission, AServerThatIsGoneIsNamedWithTheRemedy) {
  const Printer printer = Printer::openQueue(kQueue);
  const std::string gone = "127.0.0.1:1";
  cupsSetServer(gone.c_str());
  for (const auto& call : std::initializer_list<std::function<void()>>{
           [] { Printer::openQueue(kQueue); }, [] { Printer::openDefaultQueue(); },
           [] { askJobStatus(1); }, [&] { print(printer, printer.newTicket()); }}) {
    const PrintError error = errorOf(call);
    EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
    EXPECT_THAT(error.what(), AllOf(HasSubstr(gone), HasSubstr("CUPS_SERVER")));
  }
  cupsSetServer(nullptr);
}

TEST_F(Submission, AServerThatGoesAwayWhileTheDocumentIsSentIsReported) {
  const Printer printer = Printer::openQueue(kQueue);
  Document document(folder_.file("large.ps", largePostScript()));
  const PrintError error = errorOf([&] {
    submit(printer, printer.newTicket(), {&document, 1}, "Title",
           [this, stopped = false](std::uint64_t, std::uint64_t) mutable {
             if (!std::exchange(stopped, true)) cups_.TearDown();
             return true;
           });
  });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), HasSubstr("large.ps could not be sent completely"));
  cups_.SetUp();
  SetUpTestSuite();
}

TEST_F(Submission, AServerThatGoesAwayWhileAJobIsFollowedIsReported) {
  std::ofstream(cups_.out() + "/block") << "";
  const Printer printer = Printer::openQueue(kQueue);
  const int job = print(printer, printer.newTicket());
  const std::string server = cups_.server();
  const PrintError error = errorOf([&] {
    followJob(job, {.changed =
                        [this](const JobStatus& now) {
                          if (now.state == IPP_JSTATE_PROCESSING) cups_.TearDown();
                        },
                    .goesOn = {}});
  });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), AllOf(HasSubstr(server), HasSubstr("job " + std::to_string(job))));
  cups_.SetUp();
  SetUpTestSuite();
}

TEST_F(Submission, AServerThatGoesAwayBeforeTheJobIsSentIsReported) {
  const Printer printer = Printer::openQueue(kQueue);
  cups_.TearDown();
  const PrintError error = errorOf([&] { print(printer, printer.newTicket()); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), HasSubstr("CUPS_SERVER"));
  cups_.SetUp();
  SetUpTestSuite();
}

}  // namespace
}  // namespace publishing

// SPDX-License-Identifier: Apache-2.0
// What the field of the page list says while its user types, and that Print agrees with it.
#include <random>

#include <gmock/gmock.h>

#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using Kind = FieldNote::Kind;

class PageListFieldTest : public DialogHostTest {
 protected:
  PageListFieldTest() { choose(office); }

  [[nodiscard]] const FieldNote& note() const { return pages().note(); }
  [[nodiscard]] const FieldNote& noteOn(const std::string& list) {
    pages().type(list);
    return note();
  }
};

TEST_F(PageListFieldTest, HasAHintBeforeAnythingIsTyped) {
  EXPECT_EQ(note().kind, Kind::Hint);
  EXPECT_THAT(pages().tooltip(), StartsWith("Needs sheets"));
  box("PiCheckBox").click();
  EXPECT_EQ(note().kind, Kind::Hint);
  EXPECT_THAT(note().text, StartsWith("Pages 2 to 511."));
  EXPECT_EQ(pages().tooltip(), "");
  dialog.pages = 24;
  EXPECT_THAT(noteOn("5").text, StartsWith("Pages 2 to 24."));
}

TEST_F(PageListFieldTest, SaysAtOnceWhatPrintWillRefuse) {
  box("PiCheckBox").click();
  EXPECT_EQ(noteOn("5,12-30"), (FieldNote{Kind::Fault, "“12-30”: at most 10 pages in a range."}));
  EXPECT_EQ(pages().tooltip(), note().text);  // for those who do not see the note
  EXPECT_EQ(noteOn("5,12-14").kind, Kind::Hint);
  EXPECT_EQ(pages().tooltip(), "");
}

TEST_F(PageListFieldTest, LeavesTheUserTimeToFinishAnEntry) {
  box("PiCheckBox").click();
  EXPECT_EQ(noteOn("12-").kind, Kind::Unfinished);
  box("PiPrintOnFront").click();
  EXPECT_EQ(note().kind, Kind::Fault);
  EXPECT_EQ(noteOn("12-1").kind, Kind::Unfinished);
  EXPECT_EQ(noteOn("12-1,").kind, Kind::Fault);
}

TEST_F(PageListFieldTest, FollowsTheCovers) {
  dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
  box("PiCheckBox").click();
  EXPECT_EQ(noteOn("2").kind, Kind::Hint);
  box("CmCheckBox").click();
  for (const char* side : {"CmFrontOutside", "CmFrontInside"})
    if (box(side).state() != 1) box(side).click();
  EXPECT_EQ(note().kind, Kind::Fault);
  EXPECT_THAT(note().text, HasSubstr("page 3 is the lowest"));
  box("CmFrontInside").click();
  EXPECT_THAT(note().text, StartsWith("Pages 2 to 511."));
}

TEST_F(PageListFieldTest, NamesPagesThatGetNoSheet) {
  dialog.pages = 24;
  dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
  box("PiCheckBox").click();
  EXPECT_EQ(noteOn("5,30"),
            (FieldNote{Kind::Remark, "No insert for page 30: the last page is 24."}));
  EXPECT_TRUE(dialog.print());
  box("CmCheckBox").click();
  covers().click(1);
  box("CmBackOutside").click();
  EXPECT_EQ(noteOn("24"),
            (FieldNote{Kind::Remark, "No insert for page 24: it is printed on a cover."}));
}

TEST_F(PageListFieldTest, SaysNothingOfAListThatTheLayoutSwitchedOff) {
  box("PiCheckBox").click();
  EXPECT_EQ(noteOn("1,5").kind, Kind::Fault);
  dialog.change([](DialogJob& job) { job.reverse = true; });
  EXPECT_EQ(note().kind, Kind::Hint);
  EXPECT_EQ(pages().tooltip(), "Switch off Reverse.");
  dialog.change([](DialogJob& job) { job.reverse = false; });
  EXPECT_EQ(note().kind, Kind::Fault);
}

TEST_F(PageListFieldTest, WritesWhatIsTypedOrPastedAsAPageList) {
  box("PiCheckBox").click();
  for (const char* typed : {"5, 8, 12–14", "5 8 12—14", "５，８，１２～１４", "5;8;12-14"}) {
    EXPECT_EQ(noteOn(typed).kind, Kind::Hint);
    EXPECT_EQ(pages().stringValue(), "5,8,12-14") << typed;
  }
}

TEST_F(PageListFieldTest, SaysWhichCharactersItRefused) {
  box("PiCheckBox").click();
  EXPECT_THAT(noteOn("5x"), (FieldNote{Kind::Remark,
                                       "“x” was not accepted. Pages are written with digits, “,” "
                                       "between them and “-” for a range: 5,8,12-14"}));
  EXPECT_EQ(pages().stringValue(), "5");
  EXPECT_EQ(pages().tooltip(), note().text);
}

TEST_F(PageListFieldTest, RefusalIsReadUntilTheUserDoesSomethingElse) {
  box("PiCheckBox").click();
  EXPECT_THAT(noteOn("5x8").text, StartsWith("“x” was not accepted"));
  box("PiPrintOnFront").click();
  EXPECT_EQ(note().kind, Kind::Hint);
  // A list that will not be accepted is more important.
  EXPECT_THAT(noteOn("x600").text, StartsWith("“600”"));
  EXPECT_EQ(noteOn("600x").kind, Kind::Fault);
  EXPECT_EQ(noteOn("5").kind, Kind::Hint);
}

TEST_F(PageListFieldTest, OutlivesNoPanel) {
  box("PiCheckBox").click();
  HeadlessTextField& field = pages();
  const auto bundle = dialog.bundle();
  dialog.loseHost();
  field.type("5x");
  EXPECT_EQ(field.stringValue(), "5");
}

// Lists near the limits of everything that the panel looks at.
class RandomLists {
 public:
  std::string next() {
    std::string list;
    const unsigned entries = upTo(4) == 0 ? 9 + upTo(4) : upTo(5);
    for (unsigned index = 0; index < entries; ++index)
      list += (index == 0 ? "" : ",") + entry();
    if (upTo(20) == 0) list.insert(upTo(static_cast<unsigned>(list.size())), 1, character());
    return list;
  }

 private:
  unsigned upTo(unsigned highest) { return static_cast<unsigned>(random_() % (highest + 1)); }

  std::string number() {
    switch (upTo(9)) {
      case 0:
        return std::to_string(upTo(4));
      case 1:
        return std::to_string(505 + upTo(9));
      case 2:
        return upTo(9) == 0 ? "0" + std::to_string(upTo(20)) : std::to_string(upTo(9999));
      default:
        return std::to_string(2 + upTo(60));
    }
  }

  std::string entry() {
    const std::string first = number();
    if (upTo(2) != 0) return first;
    const unsigned pages = upTo(11);
    return first + "-" + (upTo(3) == 0 ? number() : std::to_string(std::stoul(first) + pages));
  }

  char character() { return "0123456789-,"[upTo(11)]; }

  std::mt19937 random_{20'221'122};
};

// The panel on its own, and what its field says: nothing is remembered.
class PanelWithList {
 public:
  PanelWithList(const std::string& ppd, Sides sides, const std::vector<const char*>& ticked)
      : bundle_(std::make_shared<HeadlessBundle>(
            [this](const auto&, const std::string& message, const auto&) { alert_ = message; })),
        job_(jobWith(sides)),
        panel_(std::make_unique<Printer>(Printer::openPPD(ppd)), job_, bundle_, false,
               [](const auto&) {}) {
    panel_.open(job_);
    for (const char* name : ticked) {
      HeadlessCheckBox& box = *bundle_->interface()->checkBox(name);
      if (box.state() != 1) box.click();
      panel_.noteGesture(name);
    }
  }

  const FieldNote& type(const std::string& list) {
    field().type(list);
    panel_.noteGesture("PiPageNum");
    const DialogPlaces places = {"", "", "", ""};
    panel_.showReasons(places, panel_.sheets(job_, std::nullopt));
    return field().note();
  }

  bool print() { return panel_.save().has_value(); }
  [[nodiscard]] const std::string& alert() const { return alert_; }

 private:
  HeadlessTextField& field() { return *bundle_->interface()->textField("PiPageNum"); }

  static DialogJob jobWith(Sides sides) {
    DialogJob job;
    job.sides = sides;
    return job;
  }

  std::string alert_;
  std::shared_ptr<HeadlessBundle> bundle_;
  DialogJob job_;
  HostedPanel panel_;
};

class PageListPromise : public PageListFieldTest {
 protected:
  void checkRandomLists(PanelWithList& panel) {
    for (int index = 0; index < 4000; ++index) {
      const std::string list = lists.next();
      const FieldNote note = panel.type(list);
      const bool isCalledGood = note.kind == Kind::Hint && !list.empty();
      const bool isAccepted = panel.print();
      ASSERT_EQ(isCalledGood, isAccepted) << list << ": " << note.text;
      // The alert says the same again.
      if (!isAccepted && !list.empty()) {
        ASSERT_THAT(panel.alert(), EndsWith("\n" + note.text)) << list;
      }
      ++(isAccepted ? accepted : refused);
    }
  }

  RandomLists lists;
  int accepted = 0;
  int refused = 0;
};

// In each kind of job that has rules of its own.
TEST_F(PageListPromise, FieldCallsGoodWhatPrintAcceptsAndNothingElse) {
  const std::vector<const char*> jobs[] = {
      {"PiCheckBox"},
      {"PiCheckBox", "CmCheckBox", "CmFrontOutside"},
      {"PiCheckBox", "CmCheckBox", "CmFrontOutside", "CmFrontInside"}};
  for (const Sides sides : {Sides::OneSided, Sides::TwoSidedLongEdge}) {
    for (const auto& ticked : jobs) {
      PanelWithList panel(office, sides, ticked);
      checkRandomLists(panel);
      if (HasFatalFailure()) return;
    }
  }
  EXPECT_GT(accepted, 6000);
  EXPECT_GT(refused, 6000);
}

}  // namespace
}  // namespace publishing

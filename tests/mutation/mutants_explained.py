# SPDX-License-Identifier: Apache-2.0
"""Mutants of Publishing/ that do what the sources do, so that no test can tell them apart:
(file, the lines as they are, the lines as mutated) to the reason, with the line before as a fourth
where the same lines stand elsewhere too. Blanks count once."""

INDEPENDENT = "What is on and what is usable are two properties of a control; neither sets the other."
READ_BACK = "The refresh that ends the restore reads it back from the controls."
READ_FROM_MATRIX = "The refresh reads it back from the matrix, whose first cell is selected in the next line."
DONE_AGAIN = "The restore does the same once more before the refresh."
INSERT_OFF = "Page Insert is off here, and showing it as off selects the first item in any case."
NO_STATE = "A pop-up accepts a state as every button does and shows nothing of it."
ENDS_IN_IT = "updateUI ends in updateConstraints."
NEVER_BEFORE_10_5 = "RunningOn105OrLater is true on every system that this is built for."

EXPLAINED = {
    ("Publishing/trace/MyDebug.cpp",
     "for (std::size_t index = 0; index < name.size(); ++index) {",
     "for (std::size_t index = 0; index <= name.size(); ++index) {"):
        "The terminator of the name is neither a bracket nor the beginning of '::'.",
    ("Publishing/trace/MyDebug.cpp",
     "if (written < 0 && errno == EINTR) continue;",
     "if (written < 1 && errno == EINTR) continue;"):
        "The two differ for a write of 0 bytes; one to a file with bytes to write writes some or fails.",
    ("Publishing/trace/MyDebug.cpp",
     "if (written <= 0) return;",
     "if (written < 0) return;"):
        "The two differ for a write of 0 bytes; one to a file with bytes to write writes some or fails.",
    ("Publishing/trace/MyDebug.cpp",
     "if (!file) return; ::lseek(file.descriptor(), 0, SEEK_END);",
     "::lseek(file.descriptor(), 0, SEEK_END); if (!file) return;"):
        "To seek in a file that is not open fails and changes nothing.",
    ("Publishing/ppd/PPDFields.cpp",
     "unsigned bits = 0; // without an early end: keywords are short and nearly always ASCII",
     "unsigned bits = 1; // without an early end: keywords are short and nearly always ASCII"):
        "Only the highest bit of a byte is looked at.",
    ("Publishing/PublishingPDE-actions.cpp",
     "state_.covermodeRadioButtonState = 1;",
     "state_.covermodeRadioButtonState = 2;",
     "state_.transparencyinterleavingEnableState = 0;"):
        READ_FROM_MATRIX,
    ("Publishing/PublishingPDE-actions.cpp",
     "state_.covermodeRadioButtonState = 1;",
     "state_.covermodeRadioButtonState = 0;",
     "state_.transparencyinterleavingEnableState = 0;"):
        READ_FROM_MATRIX,
    ("Publishing/PublishingPDE-controls.cpp",
     "popUp.removeAllItems(); popUp.setAutoenablesItems(false);",
     "popUp.setAutoenablesItems(false); popUp.removeAllItems();"):
        "Who enables the items is a property of the pop-up, whatever its items are.",
    ("Publishing/PublishingPDE-controls.cpp",
     "if (ppdFile == nullptr) return; ppdOption = ppdFindOption(ppdFile, kTray);",
     "ppdOption = ppdFindOption(ppdFile, kTray); if (ppdFile == nullptr) return;"):
        "libcups finds no option in no PPD, and nothing reads ppdOption.",
    ("Publishing/PublishingPDE-refresh.cpp",
     "tickCoverSides(); selectMatrixCell();",
     "selectMatrixCell(); tickCoverSides();"):
        "The side boxes and the matrix are set from different fields and do not touch each other.",
    ("Publishing/PublishingPDE-refresh.cpp",
     "PiMediaType->selectItemAtIndex(0); // crosswise on purpose, mirrored in showPageInsert",
     "; // crosswise on purpose, mirrored in showPageInsert"):
        INSERT_OFF,
    ("Publishing/PublishingPDE-refresh.cpp",
     "PiMediaType->selectItemAtIndex(0); // crosswise on purpose, mirrored in showPageInsert",
     "PiMediaType->selectItemAtIndex(1); // crosswise on purpose, mirrored in showPageInsert"):
        INSERT_OFF,
    ("Publishing/PublishingPDE-refresh.cpp",
     "CmMediaType->setState(0);",
     "CmMediaType->setState(1);"):
        NO_STATE,
    ("Publishing/PublishingPDE-refresh.cpp",
     "CmMediaType->setState(0);",
     ";"):
        NO_STATE,
    ("Publishing/PublishingPDE-refresh.cpp",
     "CmMediaType->setEnabled(false); CmMediaType->setState(0);",
     "CmMediaType->setState(0); CmMediaType->setEnabled(false);"):
        INDEPENDENT,
    ("Publishing/PublishingPDE-restore.cpp",
     "state_.covermodeRadioButtonState = 0;",
     "state_.covermodeRadioButtonState = 1;"):
        READ_BACK,
    ("Publishing/PublishingPDE-restore.cpp",
     "restorePageNumbers(); PiCheckBox->setState(1);",
     "PiCheckBox->setState(1); restorePageNumbers();"):
        "The page list and the check box do not touch each other.",
    ("Publishing/PublishingPDE-restore.cpp",
     "restorePageNumbers();",
     ";",
     "state_.transparencyinterleavingEnableState = 0;"):
        DONE_AGAIN,
    ("Publishing/PublishingPDE-restore.cpp",
     "PiCheckBox->setState(1);",
     "PiCheckBox->setState(0);"):
        "The refresh that ends the restore sets the box from the state.",
    ("Publishing/PublishingPDE-restore.cpp",
     "readPrintSetting(kPageMediaType, state_.pimediatype);",
     ";"):
        READ_BACK,
    ("Publishing/PublishingPDE-save.cpp",
     "changePPDSettingForOption(option, *choice);",
     ";"):
        NEVER_BEFORE_10_5,
    ("Publishing/PublishingPDE.cpp",
     "updateConstraints();",
     ";"):
        ENDS_IN_IT,
    ("Publishing/PublishingPDE.cpp",
     "updateConstraints(); updateUI();",
     "updateUI(); updateConstraints();"):
        ENDS_IN_IT,
    ("Publishing/trace/TraceFormat.cpp",
     "std::array<char, 2 * kWidest> text{}; // the longest double has some 310 digits before its point",
     "std::array<char, 3 * kWidest> text{}; // the longest double has some 310 digits before its point"):
        "No text fills either.",
    ("Publishing/trace/TraceFormat.cpp",
     "std::array<char, 32> text{};",
     "std::array<char, 33> text{};"):
        "The shortest text of a double has at most 24 characters.",
    ("Publishing/parseNum.cpp",
     "constexpr std::int64_t kLargest = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;",
     "constexpr std::int64_t kLargest = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 2;"):
        "Either is beyond every bound that a page can have.",
    ("Publishing/parseNum.cpp",
     "std::int64_t highest_ = 0;",
     "std::int64_t highest_ = 1;"):
        "Page 1 is then looked for in an empty list, and is not found.",
    ("Publishing/parseNum.cpp",
     "for (std::int32_t index = 1; index < length; ++index) {",
     "for (std::int32_t index = 0; index < length; ++index) {"):
        "The first number has none before it to be moved behind.",
}

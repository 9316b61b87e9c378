// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/MediaCode.h"

#include "Publishing/PublishingKeys.h"

namespace publishing {
namespace {

// Runs code that may fail, and leaves nothing on the stack.
std::string tried(const std::string& code) {
  return "[{\n" + code + "\n} stopped cleartomark\n";
}

std::string run(const std::string& procedure) {
  return "[{PublishingMedia/" + procedure + " get exec}stopped cleartomark\n";
}

std::string tried(const ChoiceCode& choice) {
  if (!choice.isFeature) return choice.code.empty() ? std::string() : tried(choice.code);
  return tried("%%BeginFeature: *" + choice.option + " " + choice.choice + "\n" + choice.code +
               "\n%%EndFeature");
}

// The page device's keys for a tray and for a type of paper.
constexpr const char* kTrayKeys = "/MediaPosition/ManualFeed/DeferredMediaSelection";
constexpr const char* kTypeKeys = "/MediaType/MediaColor/MediaWeight/MediaClass";

// value: the device's, or null. set: all keys of a dictionary, or those of them that can be set.
// keep and back: the body's medium. release: keys, to null or false. hold and resume: what a
// document has set of its graphics state, and setpagedevice sets anew; the coordinates follow when
// another tray has others. again: the state at the beginning of the first set of copies comes back,
// because Ghostscript's pages print only once; not to be called from a procedure that is younger
// than that state.
constexpr const char* kProcedures = R"(userdict/PublishingMedia 20 dict dup begin
/value{currentpagedevice 1 index known{currentpagedevice exch get}{pop null}ifelse}bind def
/set{dup length 0 eq{pop}{dup mark exch{setpagedevice}stopped
{cleartomark{1 dict dup 4 2 roll put mark exch{setpagedevice}stopped pop cleartomark}forall}
{cleartomark pop}ifelse}ifelse}bind def
/release{10 dict exch{dup//value exec dup type/booleantype eq
{{2 copy false put}if}{null ne{2 copy null put}if}ifelse pop}forall//set exec}bind def
/body 10 dict def
/keep{//keys{dup//value exec dup null eq{pop pop}{//body 3 1 roll put}ifelse}forall}bind def
/back{10 dict//keys{//body 1 index known{//body 1 index get}{//nulls 1 index known
{null 1 index//value exec type/booleantype eq{pop false}if}{dup//value exec}ifelse}ifelse
1 index//value exec 1 index ne{3 copy put}if pop pop}forall//set exec}bind def
/now matrix def/default matrix def/other matrix def/state 7 array def
/same{true 0 1 5{3 index 1 index get 3 index 2 index get eq exch pop and}for
3 1 roll pop pop}bind def
/hold{//now currentmatrix pop//default defaultmatrix pop//state 0 currentlinewidth put
//state 1 currentlinecap put//state 2 currentlinejoin put//state 3 currentmiterlimit put
//state 4[currentdash]put//state 5[currentcolorspace]put//state 6[currentcolor]put}bind def
/resume{//other defaultmatrix pop//default//other//same exec{//now}
{//now//default matrix invertmatrix matrix concatmatrix//other matrix concatmatrix}ifelse setmatrix
//state 0 get setlinewidth//state 1 get setlinecap//state 2 get setlinejoin
//state 3 get setmiterlimit//state 4 get aload pop setdash
//state 5 get 0 get setcolorspace//state 6 get aload pop setcolor}bind def
/saved[null]def/depth[0 0]def
/again{//saved 0 get null ne{count//depth 0 get sub dup 0 gt{{pop}repeat}{pop}ifelse
countdictstack//depth 1 get sub dup 0 gt{{end}repeat}{pop}ifelse//saved 0 get{restore}stopped{pop}if}if
count//depth exch 0 exch put countdictstack//depth exch 1 exch put
save//saved exch 0 exch put}bind def
end put
)";

// CUPS's filters print a job of one page on one side, whatever was asked for: `duplex` says it
// again. Code that the PPD keeps for changes between pages may take another tray than the driver
// does by itself: all sheets of the body are to come from the same.
std::string setup(const MediumCode& body, const std::optional<ChoiceCode>& duplex) {
  std::string nulls;
  if (!body.releaseTray) nulls += kTrayKeys;
  if (!body.releaseType) nulls += kTypeKeys;
  std::string code = "%%BeginResource: procset PublishingMedia 1.0 0\n";
  const std::string text = kProcedures;
  const std::size_t place = text.find('\n') + 1;
  code += text.substr(0, place);
  code += std::string("/keys[") + kTrayKeys + kTypeKeys + "]def\n";
  code += "/nulls 10 dict def[" + nulls + "]{//nulls exch true put}forall\n";
  code += text.substr(place);
  code += "%%EndResource\n";
  std::string device;
  if (duplex) device += tried(*duplex);
  for (const ChoiceCode& choice : body.codes) {
    if (!choice.isFeature) device += tried(choice);
  }
  if (!device.empty()) code += run("hold") + device + run("resume");
  return code + run("keep");
}

std::string released(const std::optional<std::string>& ownCode, const std::string& keys) {
  if (!ownCode) return "[{[" + keys + "]PublishingMedia/release get exec}stopped cleartomark\n";
  return ownCode->empty() ? std::string() : tried(*ownCode);
}

std::string codeOf(const MediumCode& medium) {
  std::string code = run("hold");
  switch (medium.way) {
    case MediumCode::Way::Body:
      if (medium.releaseTray) code += released(medium.releaseTray, {});
      if (medium.releaseType) code += released(medium.releaseType, {});
      break;
    case MediumCode::Way::Tray:
      code += released(medium.releaseType,
                       std::string(kTypeKeys) + "/ManualFeed/DeferredMediaSelection");
      break;
    case MediumCode::Way::Type:
      code += released(medium.releaseTray,
                       std::string(kTrayKeys) + "/MediaColor/MediaWeight/MediaClass");
      break;
  }
  if (!medium.unknownType.empty()) {
    code += tried("<</MediaType(" + postScriptString(medium.unknownType) + ")>>setpagedevice");
  }
  for (const ChoiceCode& choice : medium.codes)
    code += tried(choice);
  if (medium.way == MediumCode::Way::Body) code += run("back");
  return code + run("resume");
}

}  // namespace

std::string postScriptString(const std::string& text) {
  std::string escaped;
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte);
    if (byte == '(' || byte == ')' || byte == '\\') {
      escaped += {'\\', byte};
    } else if (value < ' ' || value > '~') {
      escaped += {'\\', static_cast<char>('0' + value / 64), static_cast<char>('0' + value / 8 % 8),
                  static_cast<char>('0' + value % 8)};
    } else {
      escaped += byte;
    }
  }
  return escaped;
}

SheetCode sheetCode(const SheetOrder& order, const FilterPPD& ppd) {
  const MediumCode body = ppd.medium({}, {});
  SheetCode code;
  code.setup = setup(body, ppd.duplex(order.twoSided));
  code.media[{}] = codeOf(body);
  if (order.covers != Covers::None && !order.coverMedium.empty())
    code.media[order.coverMedium] = codeOf(ppd.medium(cCoverMediaType, order.coverMedium));
  if (order.inserts && !order.insertMedium.empty())
    code.media[order.insertMedium] = codeOf(ppd.medium(cPageMediaType, order.insertMedium));
  code.newSet = "PublishingMedia/again get exec\n";
  return code;
}

}  // namespace publishing

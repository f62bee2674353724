#include "seeded_faults.h"

namespace qen::analysis {
namespace {

constexpr SeededFault kTextFaults[] = {
    {"TextOfNoLanguage", Rule::MissingText, kMenuFile, "textid |99",
     [](SoundGui& gui) {
       gui.Replace(kMenuFile, "textid 1\n", "textid 99\n");
       gui.Replace(kOptionsFile, "textid 5 ", "textid 1 ");
       gui.Replace(kScriptFile, "leave)", "leave, 5)");
     }},
    {"TextOfOneLanguage", Rule::MissingText, kMenuFile, "textid |3",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\tstr3 \"Ende\"\n", ""); }},
    {"CommentWithoutWords", Rule::MissingText, kMenuFile, "commentid |9",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\tstr9 \"The first level\"\n", ""); }},
    {"NoEnglish", Rule::MissingText, kTextsFile, "lang |British",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "english", "British"); }},
    {"NoLanguageFile", Rule::MissingText, kMenuFile, "textid |1",
     [](SoundGui& gui) { gui.Replace(kDescriptionFile, "lang texts.txt\n", ""); }},
    {"Untranslated", Rule::UntranslatedText, kTextsFile, "str20",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\tstr11 \"Sound\"\n", "\tstr11 \"Sound\"\n\tstr20 \"New\"\n"); }},
    {"TwiceInASection", Rule::RepeatedText, kTextsFile, "|str1 \"Again\"",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\tstr11 \"Sound\"\n", "\tstr11 \"Sound\"\n\tstr1 \"Again\"\n"); }},
    {"NeverUsed", Rule::UnusedText, kTextsFile, "str11",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "textid 11", "textid 7"); }},
    {"WordTooWideForAButton", Rule::TextTooLong, kMenuFile, "textid |3",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\"Ende\"", "\"Spielstandverwaltung\""); }},
    {"TooManyLinesForAButton", Rule::TextTooLong, kOptionsFile, "textid |4",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\"Back\"", "\"Back to where we came from\""); }},
    {"WordTooWideForASideOfACheckButton", Rule::TextTooLong, kOptionsFile, "textid |6",
     [](SoundGui& gui) {
       gui.Replace(kTextsFile, "\"Leicht\"", "\"Leichtigkeitsgrad\"");
       gui.Replace(kOptionsFile, "b_unchecked { textid 6", "b_unchecked { textid 7");
     }},
    {"RowTooWideForAList", Rule::TextTooLong, kMenuFile, "textid |8",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\"Level 1\"", "\"Level 1, the meadow of lanterns\""); }},
    {"LetterOfNoFont", Rule::MissingLetters, kTextsFile, "\"Qu\uE000it\"",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\"Quit\"", "\"Qu\uE000it\""); }},
    {"FaceThatIsNotThere", Rule::MissingFace, kStyleFile, "\"Gothic\"",
     [](SoundGui& gui) {
       gui.Replace(kStyleFile, "Serif", "Gothic");
       gui.fonts.missing.insert(u"Gothic");
     }},
};

}  // namespace

std::span<const SeededFault> TextFaults() { return kTextFaults; }

}  // namespace qen::analysis

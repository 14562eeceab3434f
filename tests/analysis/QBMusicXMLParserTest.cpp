// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/QBMusicXMLParser.h"

#include "analysis/instrument/ToneFilter.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/store/QBSettings.h"
#include "platform/files/Resources.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

const std::string kOvertone =
    "<Overtone><OverString>2</OverString><OverFret>3</OverFret><OverNote>5</OverNote>"
    "<OverNmbOfHits>7</OverNmbOfHits><Amp>1.5</Amp><Offset>-4</Offset></Overtone>";
const std::string kHead = "<Instrument><Name>Guitar</Name><DetailLevel>0.5</DetailLevel>";

std::string spectrum(const std::string& order, const std::string& overtones) {
  return "<Spectrum><String><Order>" + order + "</Order></String>" + overtones + "</Spectrum>";
}

/// An instrument in a line: name, detail level, then the spectra that have something to show, with
/// "!" when calibrated and with their overtones.
std::string lineOf(QBInstrument& instrument) {
  std::ostringstream line;
  line << instrument.name() << ' ' << instrument.detaillevel();
  for (int string = 0; string < 6; ++string) {
    QBSpectrum* read = instrument.findSpectrumByString(string);
    if (!read->isCalibrated() && read->overtones().empty()) continue;
    line << " | " << string << (read->isCalibrated() ? "!" : "");
    for (const QBOvertone* tone : read->overtones())
      line << ' ' << tone->string() << ',' << tone->fret() << ',' << tone->note() << " x"
           << tone->hits() << ' ' << tone->amp() << '@' << tone->offset();
  }
  return line.str();
}

struct QBMusicXMLParserTest : testing::Test {
  /// What the file leaves in the store; "" when that is no instrument.
  std::string parse(const std::string& content) {
    const std::size_t before = QBTabMgr::db().instruments().size();
    const std::string file = m_store.folder().file("guitar.xml");
    std::filesystem::remove(file);  // Writing over a file waits for the disk.
    test::writeFile(file, content);
    EXPECT_EQ(QBMusicXMLParser(QBTabMgr::db(), file).parse(), nullptr);
    const auto& all = QBTabMgr::db().instruments();
    return all.size() > before ? lineOf(*all.back()) : "";
  }

  test::StandardStore m_store;
};

TEST_F(QBMusicXMLParserTest, readsEveryElementAndAnswersNone) {
  const std::string text =
      "<Instrument>\r\n <Name> My \nGuitar</Name>\n\t<DetailLevel>0.5</DetailLevel>\n" +
      spectrum("3", kOvertone + "\n " + kOvertone) + spectrum(" 0", "") + "</Instrument>\n";
  EXPECT_EQ(parse(text), " My Guitar 0.5 | 0! | 3! 2,3,5 x7 1.5@-4 2,3,5 x7 1.5@-4");
  const QBInstrument* read = QBTabMgr::db().selectedInstrument();
  ASSERT_NE(read, nullptr) << "active";
  EXPECT_TRUE(read->editable());
  EXPECT_FALSE(read->isCalibrated());
  EXPECT_EQ(read->volume(), 1.0F);
  EXPECT_EQ(read->tuning(), m_store.standard());
}

TEST_F(QBMusicXMLParserTest, badHeaderCreatesNothing) {
  for (const std::string text :
       {"", "Instrument", "<Instrument>", "<?xml version=\"1.0\"?><Instrument>",
        "<Instrument><DetailLevel>0.5</DetailLevel><Name>Guitar</Name>",
        "<Instrument><Name>Guitar<DetailLevel>0.5</DetailLevel>",
        "<Instrument><Name>Pete's</Name><DetailLevel>0.5</DetailLevel>",
        "<Instrument><Name>Guitar</Name><DetailLevel>0.5</DetailLevel"})
    EXPECT_EQ(parse(text), "") << text;
  EXPECT_EQ(QBMusicXMLParser(QBTabMgr::db(), m_store.folder().file("missing.xml")).parse(),
            nullptr);
  EXPECT_TRUE(QBTabMgr::db().instruments().empty());
}

TEST_F(QBMusicXMLParserTest, badElementEndsTheReadingAndKeepsWhatCameBefore) {
  const std::string good = kHead + spectrum("1", kOvertone);
  const std::string tail = spectrum("2", kOvertone) + "</Instrument>";
  const std::string line = "Guitar 0.5 | 1! 2,3,5 x7 1.5@-4";
  for (const std::string& bad :
       {spectrum("6", ""), spectrum("-1", ""), std::string("<Spektrum></Spektrum>"),
        std::string("<Spectrum><Order>2</Order></Spectrum>"), std::string("'")})
    EXPECT_EQ(parse(good + bad + tail), line) << bad;
  std::string withoutAmp = kOvertone;
  withoutAmp.erase(withoutAmp.find("<Amp>"), std::string("<Amp>1.5</Amp>").size());
  EXPECT_EQ(parse(good + spectrum("0", kOvertone + withoutAmp) + tail),
            "Guitar 0.5 | 0 2,3,5 x7 1.5@-4 | 1! 2,3,5 x7 1.5@-4")
      << "the spectrum keeps its first overtone and is not calibrated";
  EXPECT_EQ(parse(good + tail.substr(0, tail.find("</Overtone>"))), line + " | 2 2,3,5 x7 1.5@-4")
      << "an overtone stays even without its end";
}

TEST_F(QBMusicXMLParserTest, tagsInFrontOfACloseTagAreSkipped) {
  const std::string commented = "<Instrument><Name>Guitar<i>old</i></Name>";
  EXPECT_EQ(parse("<Instrument><Name>Guitar<i>old<b></Name><DetailLevel>1</DetailLevel>"),
            "Guitar 1");
  EXPECT_EQ(parse(commented + "<DetailLevel>1</DetailLevel>"), "") << "but no other close tag";
}

TEST_F(QBMusicXMLParserTest, survivesNumbersOutOfRange) {
  std::string huge = kOvertone;
  for (const char* number : {">2<", ">3<", ">5<", ">7<", ">-4<"})
    huge.replace(huge.find(number) + 1, std::string(number).size() - 2, "99999999999");
  huge.replace(huge.find("1.5"), 3, "-1e999");
  EXPECT_NE(parse(kHead + spectrum("0", huge)), "");
  QBInstrument* read = QBTabMgr::db().selectedInstrument();
  const QBOvertone* tone = read->findSpectrumByString(0)->overtones().at(0);
  EXPECT_EQ(tone->hits(), std::numeric_limits<int>::max());
  EXPECT_EQ(tone->amp(), std::numeric_limits<double>::lowest());
  EXPECT_FALSE(filterLowerE(*read, 12, *test::addChord(m_store.song("song"), "022000")));
}

TEST_F(QBMusicXMLParserTest, survivesAnyCutAndAnyBrokenByte) {
  const std::string whole = kHead + spectrum("0", kOvertone + kOvertone) + "</Instrument>";
  for (std::size_t i = 0; i < whole.size(); ++i) {
    parse(whole.substr(0, i));
    for (const char c : {'\0', '<', '>', '\''}) {
      std::string broken = whole;
      broken[i] = c;
      parse(broken);
    }
  }
  parse(std::string(1000000, '<'));
  parse(kHead + std::string(1000000, '>'));
  QBTabMgr::db().save();
}

TEST_F(QBMusicXMLParserTest, readsWithoutASelectedTuning) {
  QBTabMgr::db().selectedSettings()->setActiveTuning(nullptr);
  EXPECT_EQ(parse(kHead + spectrum("4", kOvertone)), "Guitar 0.5 | 4! 2,3,5 x7 1.5@-4");
}

TEST_F(QBMusicXMLParserTest, theInstrumentOfTheProgramIsComplete) {
  const auto file = platform::Resources::ofProgram().locate("Classic E-Guitar", "xml");
  ASSERT_TRUE(file);
  QBMusicXMLParser(QBTabMgr::db(), *file).parse();
  QBInstrument* guitar = QBTabMgr::db().selectedInstrument();
  ASSERT_NE(guitar, nullptr);
  for (const auto& read : guitar->readAllSpectrums()) {
    EXPECT_TRUE(read->isCalibrated());
    EXPECT_FALSE(read->overtones().empty());
    read->computeOffsets(OpenStrings());
    for (const auto& [position, tone] : read->readSortedTones()) {
      EXPECT_GE(tone->hits(), 1);
      EXPECT_GE(tone->offset(), 0) << "what sounds along is higher";
    }
  }
}

}  // namespace
}  // namespace korvel

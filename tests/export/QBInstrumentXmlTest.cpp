// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/QBMusicXMLParser.h"
#include "export/shelf/InstrumentXml.h"
#include "export/shelf/QBMusicXMLTag.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

std::string textOf(const QBMusicXMLTag& tag) {
  std::string text = tag.open() + tag.raw() + tag.value();
  for (const auto& child : tag.tags()) text += textOf(*child);
  return text + tag.close();
}

TEST(QBMusicXMLTag, isWrittenWithAttributesRawMarkupAndChildrenInOrder) {
  QBMusicXMLTag note("note", " \t");
  EXPECT_EQ(note.open() + note.close(), "<note/>");
  note.addRaw("<chord/>");
  note.addAttr("id=\"1\"");
  note.addAttr("x");
  EXPECT_EQ(textOf(note), "<note id=\"1\"x/><chord/>") << "raw markup does not open a tag";
  note.addTag("voice", "\t1 2 ").addTag("dot", "");
  EXPECT_EQ(note.addTagObjFirst(std::make_unique<QBMusicXMLTag>("rest", "")).title(), "rest");
  EXPECT_EQ(textOf(note), "<note id=\"1\"x><chord/><rest/><voice>1 2<dot/></voice></note>");
}

struct QBInstrumentXmlTest : testing::Test {
  QBInstrumentXmlTest() {
    m_guitar =
        QBTabMgr::db().createInstrument(m_store.standard(), "Old Guitar", true, true, 0.7F, 1);
    m_guitar->findSpectrumByString(0)->addOvertone(2, 2, 4, 12, 0.0, 1e6)->setHits(44);
    m_guitar->findSpectrumByString(1)->addOvertone(3, 2, 9, 12, 0.0, 1e6);
    for (const auto& spectrum : m_guitar->readAllSpectrums()) spectrum->defineAsCalibrated();
  }

  test::StandardStore m_store;
  QBInstrument* m_guitar;
};

TEST_F(QBInstrumentXmlTest, writesTheDefinitionWithoutAmpAndOffset) {
  std::string others;
  for (const char* string : {"2", "3", "4", "5"})
    others += std::string("<Spectrum><String><Order>") + string + "</Order></String></Spectrum>";
  EXPECT_EQ(textOf(*toXML(*m_guitar)),
            "<Instrument><Name>Old Guitar</Name><DetailLevel>0.700000</DetailLevel>"
            "<Spectrum><String><Order>0</Order></String>"
            "<Overtone><OverString>2</OverString><OverFret>2</OverFret><OverNote>4</OverNote>"
            "<OverNmbOfHits>44</OverNmbOfHits></Overtone></Spectrum>"
            "<Spectrum><String><Order>1</Order></String>"
            "<Overtone><OverString>3</OverString><OverFret>2</OverFret><OverNote>9</OverNote>"
            "<OverNmbOfHits>0</OverNmbOfHits></Overtone></Spectrum>" +
                others + "</Instrument>");
}

TEST_F(QBInstrumentXmlTest, readingBackBringsTheInstrumentAndNothingElse) {
  const std::string file = m_store.folder().file("guitar.xml");
  test::writeFile(file, textOf(*toXML(*m_guitar)));
  QBMusicXMLParser(QBTabMgr::db(), file).parse();
  ASSERT_EQ(QBTabMgr::db().instruments().size(), 2U);
  QBInstrument* read = QBTabMgr::db().findInstrumentByIndex(1);
  EXPECT_EQ(read->name(), "Old Guitar");
  for (const auto& spectrum : read->readAllSpectrums()) {
    EXPECT_TRUE(spectrum->overtones().empty());
    EXPECT_FALSE(spectrum->isCalibrated());
  }
}

}  // namespace
}  // namespace korvel

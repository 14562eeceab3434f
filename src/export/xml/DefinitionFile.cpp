// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/xml/DefinitionFile.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "platform/text/Numerals.h"

namespace korvel {
namespace {

using platform::decimalText;

/// Nested elements, one a line, each level two blanks further in.
class Elements {
 public:
  void open(const std::string& title) {
    line("<" + title + ">");
    m_open.push_back(title);
  }
  void close() {
    const std::string title = m_open.back();
    m_open.pop_back();
    line("</" + title + ">");
  }
  void add(const std::string& title, const std::string& value) {
    line("<" + title + ">" + value + "</" + title + ">");
  }
  void add(const std::string& title, int value) { add(title, std::to_string(value)); }

  const std::string& text() const { return m_text; }

 private:
  void line(const std::string& content) {
    m_text += std::string(2 * m_open.size(), ' ') + content + '\n';
  }

  std::vector<std::string> m_open;
  std::string m_text;
};

void addOvertone(Elements& file, const QBOvertone& overtone) {
  file.open("Overtone");
  file.add("OverString", overtone.string());
  file.add("OverFret", overtone.fret());
  file.add("OverNote", overtone.note());
  file.add("OverNmbOfHits", overtone.hits());
  file.add("Amp", decimalText(overtone.amp()));
  file.add("Offset", overtone.offset());
  file.close();
}

void addSpectrum(Elements& file, const QBSpectrum& spectrum) {
  auto overtones = spectrum.overtones().snapshot();
  std::ranges::sort(overtones, {}, [](const auto& overtone) { return overtone->offset(); });
  file.open("Spectrum");
  file.open("String");
  file.add("Order", spectrum.string()->order());
  file.close();
  for (const auto& overtone : overtones) addOvertone(file, *overtone);
  file.close();
}

/// The reader knows no escapes, skips line breaks and takes an apostrophe for the file's end.
void requireWritable(const std::string& name) {
  if (name.find_first_of("'<\r\n") != std::string::npos)
    throw std::invalid_argument("the name must do without apostrophes, \"<\" and line breaks");
}

}  // namespace

std::string definitionText(QBInstrument& instrument) {
  requireWritable(instrument.name());
  Elements file;
  file.open("Instrument");
  file.add("Name", instrument.name());
  file.add("DetailLevel", decimalText(static_cast<double>(instrument.detaillevel())));
  for (const auto& spectrum : instrument.readAllSpectrums()) addSpectrum(file, *spectrum);
  file.close();
  return file.text();
}

}  // namespace korvel

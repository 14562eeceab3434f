// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/PageSheet.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

#include "ui/desktop/Text.h"
#include "ui/views/grips/GripPicture.h"

namespace korvel::ui {
namespace {

// In heights of a line.
constexpr double kLetterColumn = 2.2;
constexpr double kTimesColumn = 2;
constexpr double kGripHeight = 5;
constexpr double kLargeGripHeight = 7;
constexpr double kBetweenGrips = 0.8;
constexpr double kBetweenLines = 0.5;
constexpr double kBetweenSections = 0.6;
constexpr double kPad = 0.4;
constexpr double kBetweenChords = 0.5;
constexpr double kRepeatWidth = 0.5;
constexpr double kPointRadius = 0.07;
constexpr double kPointRoom = 0.35;
constexpr double kSmallestScale = 0.55;
constexpr double kSmallestHead = 0.75;

constexpr double kGripShape = double(GripPicture::kSize.width()) / GripPicture::kSize.height();

/// The low string first, whichever hand it is drawn for.
ChordShape byString(ChordShape frets, bool leftHanded) {
  if (leftHanded) std::ranges::reverse(frets);
  return frets;
}

QString timesText(const PageSection& section) {
  return section.times > 1 ? QString("%1×").arg(section.times) : QString();
}

}  // namespace

/// Some bars of a section beside each other.
struct PageSheet::Line {
  int section;
  std::size_t first;
  std::span<const PageBar> bars;
  int times;  ///< Lines of words.
  bool opens;
  bool closes;
  double left = 0;
  double width = 0;
  std::vector<double> widths{};
  double scale = 1;  ///< Of the letters, where they are too many for the width.
};

/// What stands in the row of chords of a bar.
struct PageSheet::Item {
  double beat;
  QString words;
  Role role;
  int chord;  ///< Index in the bar; -1 for a time signature.
  double width = 0;
  double x = 0;
};

PageSheet::PageSheet(const SongPage& page, const QFont& font, double width, Parts parts,
                     const QPaintDevice* device)
    : m_page(&page),
      m_font(font),
      m_width(width),
      m_parts(parts),
      m_device(device),
      m_leftHanded(page.leftHanded) {
  m_line = heightOf(Role::plain);
  m_hasSounding = std::ranges::any_of(
      page.grips, [](const PageGrip& grip) { return grip.shape != grip.sounding; });
  addHead();
  if (parts == Parts::grips) {
    addOtherGrips();
  } else {
    addGrips(kGripHeight * m_line);
    for (int section = 0; section < static_cast<int>(page.sections.size()); ++section)
      addSection(section);
  }
  m_page = nullptr;
  m_device = nullptr;
}

// ---- letters

QFont PageSheet::fontOf(Role role, double scale) const {
  QFont font = m_font;
  const auto resize = [&](double by) {
    if (font.pointSizeF() > 0)
      font.setPointSizeF(font.pointSizeF() * by * scale);
    else
      font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * by * scale))));
  };
  switch (role) {
    case Role::title:
      font.setBold(true);
      resize(1.7);
      break;
    case Role::chord:
    case Role::chordGoingOn:
    case Role::letter:
      font.setBold(true);
      resize(1.25);
      break;
    case Role::gripName:
      font.setBold(true);
      resize(1);
      break;
    case Role::artist:
      resize(1.15);
      break;
    case Role::small:
      resize(0.8);
      break;
    case Role::plain:
    case Role::faint:
      resize(1);
  }
  return font;
}

double PageSheet::heightOf(Role role) const {
  const QFont font = fontOf(role);
  return std::ceil((m_device ? QFontMetricsF(font, m_device) : QFontMetricsF(font)).height());
}

double PageSheet::widthOf(Role role, const QString& words) const {
  const QFont font = fontOf(role);
  const QFontMetricsF metrics = m_device ? QFontMetricsF(font, m_device) : QFontMetricsF(font);
  return metrics.horizontalAdvance(words);
}

void PageSheet::addText(const QRectF& place, const QString& words, Role role, double scale,
                        Qt::Alignment align) {
  if (!words.isEmpty()) m_texts.push_back({place, words, role, scale, align});
}

// ---- head

QString PageSheet::factsOf(const SongPage& page) {
  QStringList facts;
  if (!page.soundingKey.empty())
    facts << tr("Key: %1").arg(toText(page.soundingKey)) + (page.isGuessedKey ? "?" : "");
  if (page.capo > 0)
    facts << (page.key.empty()
                  ? tr("Capo: %1").arg(page.capo)
                  : tr("Capo: %1 (shapes of %2)").arg(page.capo).arg(toText(page.key)));
  if (page.halfTones != 0)
    facts << tr("Moved by %1 half tones").arg(QString::asprintf("%+d", page.halfTones));
  if (page.tempo > 0) facts << tr("Tempo: %1").arg(std::lround(page.tempo));
  if (!page.metre.empty()) facts << tr("Metre: %1").arg(toText(page.metre));
  if (page.hasDoubts()) facts << tr("?: another name is as probable");
  return facts.join("   ");
}

/// Broken between words where it is wider.
QStringList PageSheet::linesOf(const QString& words, Role role, double width) const {
  if (widthOf(role, words) <= width) return {words};
  QStringList lines;
  for (const QString& word : words.split(' '))
    if (!lines.isEmpty() && widthOf(role, lines.last() + ' ' + word) <= width)
      lines.last() += ' ' + word;
    else
      lines << word;
  return lines;
}

void PageSheet::addHead() {
  beginBand();
  const auto add = [this](const QString& words, Role role) {
    if (words.isEmpty()) return;
    const double fits = m_width / std::max(1.0, widthOf(role, words));
    const double scale = std::clamp(fits, kSmallestHead, 1.0);
    for (const QString& line : linesOf(words, role, m_width / scale)) {
      addText({0, m_y, m_width, heightOf(role)}, line, role, scale);
      m_y += heightOf(role) * scale;
    }
  };
  add(toText(m_page->title), Role::title);
  add(toText(m_page->artist), Role::artist);
  add(factsOf(*m_page), Role::faint);
  m_y += kBetweenLines * m_line;
  endBand();
}

// ---- grips

QString PageSheet::titleOf(const PageGrip& grip) const {
  QString title = toText(grip.name);
  if (grip.shape != grip.name) title += ' ' + toText(grip.shape);
  if (grip.sounding != grip.shape) title += " (" + toText(grip.sounding) + ')';
  return title;
}

void PageSheet::addGrip(const QRectF& cell, const ChordShape& frets, const QString& name) {
  const double letters = heightOf(Role::gripName);
  const double fits = std::min(1.0, cell.width() / std::max(1.0, widthOf(Role::gripName, name)));
  addText({cell.left(), cell.top(), cell.width(), letters}, name, Role::gripName,
          std::max(kSmallestScale, fits), Qt::AlignHCenter);
  m_pictures.push_back({cell.adjusted(0, letters, 0, 0), byString(frets, m_leftHanded)});
}

/// From left to right, as many in a row as fit.
void PageSheet::addGrips(double height) {
  if (m_page->grips.empty()) return;
  double widest = height * kGripShape;
  for (const PageGrip& grip : m_page->grips)
    widest = std::max(widest, widthOf(Role::gripName, titleOf(grip)));
  const double cell = std::min(m_width, widest + kBetweenGrips * m_line);
  const int ofRow = std::max(1, static_cast<int>(m_width / cell));
  const double tall = heightOf(Role::gripName) + height;
  for (int i = 0; i < static_cast<int>(m_page->grips.size()); ++i) {
    if (i % ofRow == 0) beginBand();
    const PageGrip& grip = m_page->grips[static_cast<std::size_t>(i)];
    const QRectF place(i % ofRow * cell, m_y, cell - kBetweenGrips * m_line, tall);
    addGrip(place, grip.frets, titleOf(grip));
    m_grips.push_back({place, i});
    if ((i + 1) % ofRow != 0 && i + 1 < static_cast<int>(m_page->grips.size())) continue;
    m_y += tall + kBetweenLines * m_line;
    endBand();
  }
}

/// A row for each chord: as it is held on the page, and behind it the other ways.
void PageSheet::addOtherGrips() {
  const double height = kLargeGripHeight * m_line;
  const double cell = height * kGripShape + kBetweenGrips * m_line;
  const double tall = heightOf(Role::gripName) + height;
  for (int i = 0; i < static_cast<int>(m_page->grips.size()); ++i) {
    const PageGrip& grip = m_page->grips[static_cast<std::size_t>(i)];
    beginBand();
    const QRectF place(0, m_y, cell, tall);
    addGrip(place, grip.frets, titleOf(grip));
    m_grips.push_back({place, i});
    double x = cell + m_line;
    for (const ChordShape& other : grip.others) {
      if (x + cell > m_width) break;
      const QRectF beside(x, m_y + m_line, cell, tall - m_line);
      addGrip(beside, other, {});
      m_grips.push_back({beside, i, static_cast<int>(&other - grip.others.data())});
      x += cell;
    }
    m_y += tall + m_line;
    endBand();
  }
}

// ---- sections

void PageSheet::addSection(int index) {
  const PageSection& section = m_page->sections[static_cast<std::size_t>(index)];
  m_y += kBetweenSections * m_line;
  const double row = heightOf(Role::chord) * 1.3;
  if (!section.showsBars()) {
    beginBand();
    addLetter(section, row);
    const double left = kLetterColumn * m_line;
    const QString words = tr("as above") + (section.times > 1 ? "  " + timesText(section) : "");
    addText({left, m_y, m_width - left, row}, words, Role::faint, 1,
            Qt::AlignLeft | Qt::AlignVCenter);
    m_letters.push_back({{0, m_y, m_width, row}, index, 0, {}});
    m_y += row;
    endBand();
    return;
  }
  const std::span<const PageBar> bars = section.bars;
  const int ofWords = section.hasWords() ? section.times : 0;
  const int room = m_parts == Parts::allWithRoomForWords && m_page->hasWords() ? 1 : 0;
  for (std::size_t from = 0; from < bars.size(); from += SongPage::kBarsOfLine) {
    const std::size_t count = std::min(SongPage::kBarsOfLine, bars.size() - from);
    Line line{index,
              from,
              bars.subspan(from, count),
              std::max(ofWords, room),
              section.times > 1 && from == 0,
              section.times > 1 && from + count == bars.size()};
    beginBand();
    if (from == 0) addLetter(section, row);
    addLine(line);
    endBand();
  }
}

void PageSheet::addLetter(const PageSection& section, double height) {
  addText({0, m_y, kLetterColumn * m_line, height}, toText(section.letter), Role::letter, 1,
          Qt::AlignLeft | Qt::AlignVCenter);
}

void PageSheet::addLine(Line& line) {
  const double chords = heightOf(Role::chord) * 1.3;
  const double sounding = m_hasSounding ? heightOf(Role::small) : 0;
  const double words = line.times * m_line * 1.1;
  fitWidths(line);
  double x = line.left;
  if (line.opens) addRepeat(x, chords + sounding, true);
  for (std::size_t i = 0; i < line.bars.size(); ++i) {
    addBarLine(x, chords + sounding, line.opens && i == 0);
    const QRectF place(x, m_y, line.widths[i], chords + sounding + words);
    addChords(line, i, {x, m_y, line.widths[i], chords});
    Bar bar{place, line.section, static_cast<int>(line.first + i), {}};
    addWords(line, i, bar);
    m_bars.push_back(std::move(bar));
    x += line.widths[i];
  }
  addBarLine(x, chords + sounding, line.closes);
  if (line.closes) {
    addRepeat(x, chords + sounding, false);
    addText({x + kPad * m_line, m_y, kTimesColumn * m_line, chords},
            timesText(m_page->sections[static_cast<std::size_t>(line.section)]), Role::plain, 1,
            Qt::AlignLeft | Qt::AlignVCenter);
  }
  m_y += chords + sounding + words + kBetweenLines * m_line;
}

/// Bars are equally wide as far as what stands in them allows that. A line of fewer has narrower
/// room.
void PageSheet::fitWidths(Line& line) const {
  line.left = kLetterColumn * m_line;
  const double all = m_width - line.left - kTimesColumn * m_line;
  const double equal = all / static_cast<double>(SongPage::kBarsOfLine);
  std::vector<double> needed;
  for (const PageBar& bar : line.bars) needed.push_back(neededBy(bar, line.times));
  const double sum = std::accumulate(needed.begin(), needed.end(), 0.0);
  line.scale = std::clamp(all / std::max(1.0, sum), kSmallestScale, 1.0);
  const double wanted = std::max(sum * line.scale, equal * static_cast<double>(needed.size()));
  line.width = std::min(all, wanted);
  // What bars do not need is shared by those that are narrower than others.
  double level = line.width / static_cast<double>(needed.size());
  for (int round = 0; round < 4; ++round) {
    double wide = 0;
    int narrow = 0;
    for (const double each : needed)
      each* line.scale > level ? void(wide += each * line.scale) : void(++narrow);
    if (narrow > 0) level = (line.width - wide) / narrow;
  }
  for (const double each : needed) line.widths.push_back(std::max(level, each * line.scale));
}

double PageSheet::neededBy(const PageBar& bar, int times) const {
  double chords = kPad * m_line + kRepeatWidth * m_line;
  for (const Item& item : itemsOf(bar)) chords += item.width + kBetweenChords * m_line;
  if (bar.beattype != 0) chords += bar.beats * bar.countsOfBeat() * kPointRoom * m_line;
  double most = chords;
  for (int time = 0; time < times; ++time) {
    const QString words = toText(bar.wordText(static_cast<std::size_t>(time)));
    most = std::max(most, widthOf(Role::plain, words) + 2 * kPad * m_line);
  }
  return most;
}

std::vector<PageSheet::Item> PageSheet::itemsOf(const PageBar& bar) const {
  std::vector<Item> items;
  if (bar.showsTime)
    items.push_back({0, QString("%1/%2").arg(bar.beat).arg(bar.beattype), Role::faint, -1});
  for (int i = 0; i < static_cast<int>(bar.chords.size()); ++i) {
    const PageChord& chord = bar.chords[static_cast<std::size_t>(i)];
    const QString name = chord.name.empty() ? QString("–") : toText(chord.name);
    items.push_back({chord.beat, name + (chord.isDoubtful ? "?" : ""),
                     chord.goesOn ? Role::chordGoingOn : Role::chord, i});
  }
  for (Item& item : items) {
    item.width = widthOf(item.role, item.words);
    if (m_hasSounding && item.chord >= 0)
      item.width = std::max(
          item.width,
          widthOf(Role::small, toText(bar.chords[static_cast<std::size_t>(item.chord)].sounding)));
  }
  return items;
}

/// Each where its beat is, but for what others need.
void PageSheet::addChords(const Line& line, std::size_t index, const QRectF& place) {
  const PageBar& bar = line.bars[index];
  const double between = kBetweenChords * m_line * line.scale;
  const double from =
      place.left() + (kPad + (index == 0 && line.opens ? kRepeatWidth : 0)) * m_line;
  auto items = itemsOf(bar);
  double free = from;
  for (Item& item : items) {
    item.width *= line.scale;
    const double share = bar.beats > 0 ? item.beat / bar.beats : 0;
    item.x = std::max(free, from + share * (place.right() - from));
    free = item.x + item.width + between;
  }
  double limit = place.right();
  for (auto item = items.rbegin(); item != items.rend(); ++item) {
    item->x = std::max(from, std::min(item->x, limit - item->width));
    limit = item->x - between;
  }
  for (const Item& item : items) {
    const QRectF words(item.x, place.top(), item.width + between, place.height());
    addText(words, item.words, item.role, line.scale, Qt::AlignLeft | Qt::AlignVCenter);
    if (item.chord < 0) continue;
    const PageChord& chord = bar.chords[static_cast<std::size_t>(item.chord)];
    const double sounding = m_hasSounding ? heightOf(Role::small) : 0;
    m_chords.push_back({words.adjusted(0, 0, -between / 2, sounding), line.section,
                        static_cast<int>(line.first + index), item.chord, chord.isDoubtful});
    if (m_hasSounding && !chord.goesOn)
      addText({item.x, place.bottom(), item.width + between, sounding}, toText(chord.sounding),
              Role::small, line.scale);
  }
  addPoints(bar, place, from, line.scale);
}

/// A point for each count on which a chord goes on.
void PageSheet::addPoints(const PageBar& bar, const QRectF& place, double from, double scale) {
  if (bar.beattype == 0) return;
  const std::span<const Chord> names = std::span<const Chord>(m_chords).last(bar.chords.size());
  const double away = kPointRadius * m_line * scale;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool isLast = i + 1 == names.size();
    const double end = isLast ? bar.beats : bar.chords[i + 1].beat;
    const double right = isLast ? place.right() : names[i + 1].place.left();
    addPointsUntil(bar, bar.chords[i].beat, end, {from, place.right(), place.center().y()},
                   {names[i].place.right() + away, right - 2 * away}, scale);
  }
}

/// Where the counts are or, where names take that room, evenly between these.
void PageSheet::addPointsUntil(const PageBar& bar, double beat, double end, const Row& row,
                               const Room& room, double scale) {
  const double radius = kPointRadius * m_line * scale;
  const double counts = bar.beats * bar.countsOfBeat();
  const int first = static_cast<int>(std::floor(beat * bar.countsOfBeat())) + 1;
  const int behind = static_cast<int>(std::ceil(end * bar.countsOfBeat()));
  const auto countAt = [&](int count) {
    return row.left + count / counts * (row.right - row.left) + 2 * radius;
  };
  if (first >= behind || room.left >= room.right) return;
  const bool isFree = countAt(first) >= room.left && countAt(behind - 1) <= room.right;
  const double step = (room.right - room.left) / (behind - first);
  for (int count = first; count < behind; ++count) {
    const double x = isFree ? countAt(count) : room.left + (count - first + 0.5) * step;
    m_blots.push_back({{x - radius, row.middle - radius, 2 * radius, 2 * radius}, true});
  }
}

void PageSheet::addWords(const Line& line, std::size_t index, Bar& placed) {
  const PageBar& bar = line.bars[index];
  const double height = m_line * 1.1;
  double y = placed.place.bottom() - line.times * height;
  for (int time = 0; time < line.times; ++time, y += height) {
    const QRectF place(placed.place.left(), y, placed.place.width(), height);
    placed.words.push_back(place);
    const auto at = static_cast<std::size_t>(time);
    if (at >= bar.words.size()) continue;
    double free = place.left() + kPad * m_line;
    // Below the chord, which stands behind a sign of repetition, if there is room.
    const double from = free + (index == 0 && line.opens ? kRepeatWidth * m_line : 0);
    for (const PageWords& each : bar.words[at]) {
      const QString words = toText(each.text);
      const double width = widthOf(Role::plain, words) * line.scale;
      const double share = bar.beats > 0 ? each.beat / bar.beats : 0;
      const double wanted = from + share * place.width();
      const double x = std::max(free, std::min(wanted, place.right() - width));
      addText({x, y, width + m_line, height}, words, Role::plain, line.scale);
      free = x + width + widthOf(Role::plain, " ") * line.scale;
    }
  }
}

void PageSheet::addBarLine(double x, double height, bool isHeavy) {
  const double pen = std::max(1.0, m_line / (isHeavy ? 6 : 16));
  m_blots.push_back({{x - pen / 2, m_y, pen, height}});
}

void PageSheet::addRepeat(double x, double height, bool opens) {
  const double radius = m_line * 0.1;
  const double away = (opens ? 1 : -1) * m_line * 0.3;
  for (const double share : {0.35, 0.65})
    m_blots.push_back(
        {{x + away - radius, m_y + height * share - radius, 2 * radius, 2 * radius}, true});
}

// ---- painting

void PageSheet::paint(QPainter& painter, const Shades& shades, double top, double bottom) const {
  const auto isSeen = [&](const QRectF& place) {
    return place.bottom() >= top && place.top() <= bottom;
  };
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Chord& chord : m_chords)
    if (chord.isDoubtful && isSeen(chord.place)) painter.fillRect(chord.place, shades.doubt);
  painter.setPen(Qt::NoPen);
  painter.setBrush(shades.line);
  for (const Blot& blot : m_blots) {
    if (!isSeen(blot.place)) continue;
    blot.isRound ? painter.drawEllipse(blot.place) : painter.fillRect(blot.place, shades.line);
  }
  painter.setBrush(Qt::NoBrush);
  for (const Picture& picture : m_pictures) {
    if (!isSeen(picture.place)) continue;
    painter.setFont(m_font);
    painter.setPen(shades.text);
    GripPicture(picture.shape, m_leftHanded).paint(painter, picture.place);
  }
  for (const Text& text : m_texts) {
    if (!isSeen(text.place)) continue;
    const bool isFaint =
        text.role == Role::faint || text.role == Role::small || text.role == Role::chordGoingOn;
    painter.setPen(isFaint ? shades.faintText : shades.text);
    painter.setFont(fontOf(text.role, text.scale));
    painter.drawText(text.place, static_cast<int>(text.align | Qt::TextDontClip), text.words);
  }
}

}  // namespace korvel::ui

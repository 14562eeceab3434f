// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/PageDesk.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBSong.h"
#include "tab/page/LyricsText.h"
#include "tab/page/PageOfSong.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/ShapeDialog.h"
#include "ui/page/CapoDialog.h"
#include "ui/page/GripsDialog.h"
#include "ui/page/PageView.h"
#include "ui/page/WordsDialog.h"
#include "workflow/editing/words/LyricsEdits.h"
#include "workflow/sheets/SongGrips.h"

namespace korvel::ui {
namespace {

constexpr int kMostHalfTones = 11;

QPushButton* button(const QString& text, const QString& hint) {
  auto* made = new QPushButton(text);
  made->setToolTip(hint);
  made->setStatusTip(hint);
  return made;
}

/// As it is to sound.
PageSource moved(PageSource source, int halfTones) {
  for (PageSource::Chord& chord : source.chords)
    if (halfTones != 0) chord = movedChord(chord, halfTones);
  if (source.key) {
    const int octave = *source.key / 12 * 12;
    source.key = octave + (*source.key + halfTones + 12) % 12;
  }
  return source;
}

}  // namespace

PageDesk::PageDesk(QWidget* parent)
    : QWidget(parent),
      m_view(new PageView),
      m_capo(new QSpinBox),
      m_halfTones(new QSpinBox),
      m_numbers(new QComboBox) {
  m_view->setZoom(RememberedPages().zoom());
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  // What a narrow window has no room for is behind its last button.
  auto* controls = new QToolBar;
  addControls(*controls);
  rows->addWidget(controls);
  rows->addWidget(m_view, 1);
  setFocusProxy(m_view);
  connect(m_view, &PageView::zoomChanged, this,
          [](int percent) { RememberedPages().setZoom(percent); });
  connect(m_view, &PageView::refreshed, this, &PageDesk::showLook);
  connect(m_view, &PageView::shapeWanted, this, &PageDesk::chooseShape);
  connect(m_view, &PageView::wordsTyped, this, [this](int first, int end, const QString& words) {
    attempt([&](QBSong& song) { changeWords(song, first, end, words.toStdString()); });
  });
}

void PageDesk::addControls(QToolBar& row) {
  const auto addNamed = [&row](const QString& name, QWidget* control) {
    auto* label = new QLabel(name);
    label->setBuddy(control);
    control->setAccessibleName(name);
    row.addWidget(label);
    row.addWidget(control);
    row.addSeparator();
  };
  m_capo->setRange(0, PageOptions::kHighestCapo);
  m_capo->setSpecialValueText(tr("None"));
  addNamed(tr("Capo"), m_capo);
  auto* which = button(tr("Which Capo? ..."), tr("What a capo at each fret is good for"));
  row.addWidget(which);
  m_halfTones->setRange(-kMostHalfTones, kMostHalfTones);
  m_halfTones->setToolTip(tr("Half tones up or down, to where your voice is at ease"));
  addNamed(tr("Key up or down"), m_halfTones);
  m_numbers->addItem(tr("Names"), static_cast<int>(ChordNumbers::none));
  m_numbers->addItem(tr("Numbers: I vi IV V"), static_cast<int>(ChordNumbers::roman));
  m_numbers->addItem(tr("Nashville numbers: 1 6- 4 5"), static_cast<int>(ChordNumbers::nashville));
  addNamed(tr("Chords as"), m_numbers);
  auto* words = button(tr("Lyrics ..."), tr("Type or paste what is sung"));
  auto* grips = button(tr("Grips ..."), tr("All grips of the song, to print and to choose from"));
  row.addWidget(words);
  row.addWidget(grips);
  connect(which, &QPushButton::clicked, this, &PageDesk::chooseCapo);
  connect(words, &QPushButton::clicked, this, &PageDesk::pasteWords);
  connect(grips, &QPushButton::clicked, this, &PageDesk::showGrips);
  connect(m_capo, &QSpinBox::valueChanged, this,
          [this](int fret) { change([fret](PageLook& look) { look.options.capo = fret; }); });
  connect(m_halfTones, &QSpinBox::valueChanged, this, [this](int halfTones) {
    change([halfTones](PageLook& look) { look.options.halfTones = halfTones; });
  });
  connect(m_numbers, &QComboBox::currentIndexChanged, this, [this] {
    const auto numbers = static_cast<ChordNumbers>(m_numbers->currentData().toInt());
    change([numbers](PageLook& look) { look.options.numbers = numbers; });
  });
}

void PageDesk::setSong(QBSong* song) {
  m_song = song;
  m_look = song ? RememberedPages().of(*song) : PageLook();
  m_look.options.leftHanded = Preferences().leftHanded();
  m_view->setSong(nullptr);  // not in the look of another one
  m_view->setLook(m_look);
  m_view->setSong(song);
}

void PageDesk::showLook() {
  m_isShowing = true;
  m_capo->setValue(m_view->page().capo);
  m_halfTones->setValue(m_look.options.halfTones);
  m_numbers->setCurrentIndex(m_numbers->findData(static_cast<int>(m_look.options.numbers)));
  m_isShowing = false;
}

void PageDesk::setLeftHanded(bool leftHanded) {
  m_look.options.leftHanded = leftHanded;
  m_view->setLook(m_look);
}

void PageDesk::change(const std::function<void(PageLook&)>& change) {
  if (m_isShowing || !m_song) return;
  change(m_look);
  RememberedPages().remember(*m_song, m_look);
  m_view->setLook(m_look);
}

void PageDesk::chooseCapo() {
  if (!m_song) return;
  CapoDialog dialog(moved(pageSourceOf(*m_song), m_look.options.halfTones), m_capo->value(), this);
  if (dialog.exec() == QDialog::Accepted) m_capo->setValue(dialog.capo());
}

void PageDesk::pasteWords() {
  if (!m_song) return;
  WordsDialog dialog(toText(lyricsText(pageSourceOf(*m_song))), this);
  if (dialog.exec() != QDialog::Accepted) return;
  attempt([&](QBSong& song) { typeLyrics(song, dialog.words().toStdString()); });
}

void PageDesk::showGrips() {
  if (!m_song) return;
  GripsDialog dialog(rememberedPageOf(*m_song), this);
  const auto gripAt = [this](int grip) {
    return rememberedPageOf(*m_song).grips.at(static_cast<std::size_t>(grip));
  };
  const auto renew = [&] {
    const PageSource source = pageSourceOf(*m_song);
    const SongPage page = rememberedPageOf(*m_song);
    dialog.setPage(page);
    dialog.offerSong(isAsPlayed(source), gripAtCursor(source, page));
  };
  connect(&dialog, &GripsDialog::shapeWanted, this, [&](int grip) {
    chooseShape(grip);
    renew();
  });
  connect(&dialog, &GripsDialog::pageWanted, this, [&](int grip, const ChordShape& shape) {
    showShape(gripAt(grip), shape);
    renew();
  });
  connect(&dialog, &GripsDialog::songWanted, this,
          [&](int grip, const ChordShape& shape, bool everywhere) {
            try {
              const PageGrip chosen = gripAt(grip);
              playShape(chosen.index, shape, everywhere);
              // The page shows what is played.
              if (everywhere) forgetShape(chosen);
              renew();
            } catch (const std::exception& problem) {
              dialog.tell(translated(problem));
            }
          });
  renew();
  dialog.exec();
}

/// Otherwise its shapes are those of other chords than the song's.
bool PageDesk::isAsPlayed(const PageSource& source) const {
  return m_look.options.halfTones == 0 && m_look.options.capo.value_or(source.capo) == source.capo;
}

int PageDesk::gripAtCursor(const PageSource& source, const SongPage& page) const {
  const PageSource::Chord* chord = chordAtIndex(source, m_view->cursor());
  if (!chord) return -1;
  const auto grip = std::ranges::find_if(page.grips, [&](const PageGrip& each) {
    const PageSource::Chord* first = chordAtIndex(source, each.index);
    return first && isCalledAlike(*first, *chord);
  });
  return grip == page.grips.end() ? -1 : static_cast<int>(grip - page.grips.begin());
}

/// Of what the hand plays, counted from the capo.
void PageDesk::chooseShape(int grip) {
  if (!m_song) return;
  const SongPage page = rememberedPageOf(*m_song);
  if (grip >= static_cast<int>(page.grips.size())) return;
  const PageGrip& chosen = page.grips[static_cast<std::size_t>(grip)];
  ShapeDialog dialog(openStringsOf(m_song), toText(chosen.shape).section('/', 0, 0), this);
  dialog.keepName();
  if (dialog.exec() == QDialog::Accepted) showShape(chosen, dialog.shape());
}

void PageDesk::showShape(const PageGrip& grip, const ChordShape& shape) {
  const QString shorthand = toText(shorthandOf(shape));
  change([&](PageLook& look) { look.shapes[toText(grip.shape)] = shorthand; });
}

void PageDesk::forgetShape(const PageGrip& grip) {
  change([&](PageLook& look) { look.shapes.remove(toText(grip.shape)); });
}

/// Throws what the edit does.
void PageDesk::playShape(int index, const ChordShape& shape, bool everywhere) {
  const PageSource source = pageSourceOf(*m_song);
  ChordSpan within{0, static_cast<int>(std::ssize(m_song->allChords())) - 1};
  if (const PageSource::Chord* here = chordAtIndex(source, m_view->cursor()); here && !everywhere) {
    const auto next =
        std::ranges::upper_bound(source.chords, here->tick, {}, &PageSource::Chord::tick);
    within.first = here->index;
    if (next != source.chords.end()) within.last = next->index - 1;
  }
  holdChord(*m_song, index, shape, within);
  emit edited();
}

void PageDesk::attempt(const std::function<void(QBSong&)>& edit) {
  if (!m_song) return;
  try {
    edit(*m_song);
    emit edited();
  } catch (const std::exception& problem) {
    emit refused(translated(problem));
  }
}

}  // namespace korvel::ui

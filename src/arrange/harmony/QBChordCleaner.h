// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "arrange/harmony/QBCleanRule.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBSong;

/// Judges the tones of one string by the other tones of the chord: a tone is believed when at least
/// half of its string's rules (rounded down) find the tone that they ask for.
///
/// A sounding string brings its partials with it: the octave, the fifth above it, the second octave
/// and the third above that. Brought down by whole octaves to the lower strings near the same fret,
/// they are the grip of a major chord, and that is what the rules of a string look for.
class QBChordCleaner {
 public:
  explicit QBChordCleaner(QBChord* chord);
  QBChordCleaner(const QBChordCleaner&) = delete;
  QBChordCleaner& operator=(const QBChordCleaner&) = delete;
  virtual ~QBChordCleaner();

  bool matches(int string, int fret) const;

  /// The cleaner of a string for a chord; none beyond 0..5.
  static std::unique_ptr<QBChordCleaner> ofString(int string, QBChord* chord);
  /// A song "Cleaned" of the source's tuning and the selected instrument, in no album, with the
  /// tones of the source that are believed and without the chords that lose all of theirs.
  static QBSong* clean(QBSong& source);

 protected:
  virtual void buildRules() = 0;
  std::vector<QBCleanRule> m_rules;

 private:
  platform::Ref<QBChord> m_chord;
};

class QBChordCleanerHighE final : public QBChordCleaner {
 public:
  explicit QBChordCleanerHighE(QBChord* chord) : QBChordCleaner(chord) { buildRules(); }

 private:
  void buildRules() override;
};

class QBChordCleanerB final : public QBChordCleaner {
 public:
  explicit QBChordCleanerB(QBChord* chord) : QBChordCleaner(chord) { buildRules(); }

 private:
  void buildRules() override;
};

class QBChordCleanerG final : public QBChordCleaner {
 public:
  explicit QBChordCleanerG(QBChord* chord) : QBChordCleaner(chord) { buildRules(); }

 private:
  void buildRules() override;
};

class QBChordCleanerD final : public QBChordCleaner {
 public:
  explicit QBChordCleanerD(QBChord* chord) : QBChordCleaner(chord) { buildRules(); }

 private:
  void buildRules() override;
};

class QBChordCleanerA final : public QBChordCleaner {
 public:
  explicit QBChordCleanerA(QBChord* chord) : QBChordCleaner(chord) { buildRules(); }

 private:
  void buildRules() override;
};

class QBChordCleanerLowerE final : public QBChordCleaner {
 public:
  explicit QBChordCleanerLowerE(QBChord* chord) : QBChordCleaner(chord) { buildRules(); }

 private:
  void buildRules() override;
};

}  // namespace korvel

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/filters/QBExtractVoicings.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "tab/text/ChordText.h"

namespace korvel {

QBExtractVoicings::QBExtractVoicings(QBSong* source, int minimum)
    : m_source(source),
      m_target(source->requireAlbum().createSong(source->title() + "(voic)")),
      m_filter(minimum) {}

QBExtractVoicings::~QBExtractVoicings() = default;

void QBExtractVoicings::execute(QBChord*, QBChord* current, QBChord*) {
  constexpr std::size_t kTonesOfVoicing = 3;
  if (tonesOf(*current).size() < kTonesOfVoicing) return;
  platform::Ref<QBChord>& voicing = m_voicings[toString(*current)];
  if (!voicing) voicing = current->clone(m_target);
  ++voicing->m_hits;
}

void QBExtractVoicings::cleanUp() {
  std::erase_if(m_voicings, [&](const auto& entry) {
    const auto& [column, voicing] = entry;
    const bool rare = voicing->m_hits < m_filter;
    if (rare) m_target->deleteChord(voicing);
    return rare;
  });
}

QBSong* QBExtractVoicings::voicings() const { return m_target; }

}  // namespace korvel

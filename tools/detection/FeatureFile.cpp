// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/FeatureFile.h"

#include <array>
#include <charconv>
#include <vector>

#include "precise/Analysis.h"

namespace korvel::tools {
namespace {

using precise::Analysis;
using precise::Candidate;

/// Frames are written so far apart: neighbours say much the same.
constexpr precise::Frame kFrameStep = 10;

/// Finite, as all numbers of the detection are. As many digits as a float needs.
void append(std::string& text, double value) {
  std::array<char, 32> digits;
  constexpr int kDigits = 5;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::general, kDigits);
  text.append(digits.data(), end.ptr);
}

void appendRow(std::string& rows, std::span<const double> values) {
  const char* separator = ",\n[";
  for (const double value : values) {
    rows += separator;
    append(rows, value);
    separator = ",";
  }
  rows += ']';
}

std::vector<double> placeOf(const Candidate& candidate) {
  return {static_cast<double>(candidate.pitch) + Analysis::kLowestPitch,
          static_cast<double>(candidate.onset), static_cast<double>(candidate.end)};
}

std::string list(const std::string& name, const std::string& rows) {
  return '"' + name + "\": [" + (rows.empty() ? rows : rows.substr(1)) + ']';
}

}  // namespace

void FeatureFile::tracked(std::span<const Candidate> candidates) {
  for (const Candidate& candidate : candidates) appendRow(m_tracked, placeOf(candidate));
}

void FeatureFile::reattack(const Candidate& candidate, const precise::StrikeInputs::Inputs& known) {
  std::vector<double> row = placeOf(candidate);
  row.push_back(candidate.peak);
  row.insert(row.end(), known.begin(), known.end());
  appendRow(m_reattacks, row);
}

void FeatureFile::note(const Candidate& candidate,
                       const precise::Features<precise::NoteFeature>& known) {
  std::vector<double> row = placeOf(candidate);
  row.push_back(candidate.peak);
  row.push_back(candidate.probability);
  row.insert(row.end(), known.values().begin(), known.values().end());
  appendRow(m_notes, row);
}

void FeatureFile::onset(const Candidate& note, const precise::OnsetInputs& known) {
  std::vector<double> row = placeOf(note);
  row.push_back(note.reattack ? 1 : 0);
  for (const auto& series : known.seen()) row.insert(row.end(), series.begin(), series.end());
  appendRow(m_onsets, row);
}

void FeatureFile::frame(const Candidate& note, precise::Frame frame,
                        const precise::EndInputs::Inputs& known) {
  if (frame % kFrameStep != 0) return;
  std::vector<double> row = placeOf(note);
  row.back() = static_cast<double>(frame);
  row.insert(row.end(), known.begin(), known.end());
  appendRow(m_frames, row);
}

std::string FeatureFile::text() const {
  std::string text = "{\"hop\": ";
  append(text, Analysis::kHopSeconds);
  return text + ",\n" + list("tracked", m_tracked) + ",\n" + list("reattacks", m_reattacks) +
         ",\n" + list("notes", m_notes) + ",\n" + list("onsets", m_onsets) + ",\n" +
         list("frames", m_frames) + "}\n";
}

}  // namespace korvel::tools

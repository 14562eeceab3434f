// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "audio/QBSampleSource.h"
#include "recording/QBAudioMicrophone.h"

namespace korvel {

/// What is played in front of a microphone. Whoever wants the sound as well, beside the analyser
/// that reads the blocks, listens here.
class QBWaveIn : public QBSampleSource {
 public:
  /// Called with each block that is read, by the reading thread.
  using BlockListener = std::function<void(const QBSampleBlock&)>;

  /// The analyser, whose source this is to be, has to outlive it or stop it.
  explicit QBWaveIn(QBChordAnalyser* analyser);
  ~QBWaveIn() override;

  /// For the next start; none is the system's default.
  void setDevice(std::string device) { m_micro.setDevice(std::move(device)); }
  void onBlock(BlockListener listener) { m_listener = std::move(listener); }

  /// Throws AudioError when the device cannot be opened.
  void startRecord(float volume) override;
  void stopRecord() override;
  std::unique_ptr<QBSampleBlock> readBuffer() override;
  void setVolume(float volume) override { m_micro.setVolume(volume); }
  float getVolume() const override { return m_micro.getVolume(); }

  const QBAudioMicrophone& m_microphone() const { return m_micro; }

 private:
  QBAudioMicrophone m_micro;
  BlockListener m_listener;
};

}  // namespace korvel

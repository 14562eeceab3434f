// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/QBAudioMicrophone.h"

#include <algorithm>

#include "analysis/chords/QBChordAnalyser.h"
#include "audio/QBSampleSource.h"
#include "platform/sound/AudioSystem.h"

namespace korvel {
namespace {

constexpr std::uint64_t kValidFor = 500'000'000;

}  // namespace

QBAudioMicrophone::QBAudioMicrophone(QBChordAnalyser* analyser) : m_analyser(analyser) {}

QBAudioMicrophone::~QBAudioMicrophone() { StopRecord(); }

void QBAudioMicrophone::SetupAudioFormat() { mRecordFormat = platform::kLiveSound; }

void QBAudioMicrophone::StartRecord(float /*volume*/) {
  StopRecord();
  SetupAudioFormat();
  makeQueue();
  for (auto& buffer : mBuffers) {
    buffer = &mQueue->allocateBuffer(QBBlock::kBytes);
    fillWithZeros(*buffer);
    mQueue->enqueue(*buffer);
  }
  mQueue->flush();
  mIsRunning = true;
  try {
    mQueue->start();
  } catch (...) {
    freeQueue();
    throw;
  }
}

void QBAudioMicrophone::makeQueue() {
  m_target = AudioBuffer();
  m_wasLost = false;
  mQueue = platform::AudioSystem::main().newInput(
      m_device, mRecordFormat,
      [this](platform::QueueBuffer& buffer, const platform::AudioTimeStamp& start,
             std::uint32_t packets) { takeBuffer(buffer, start, packets); });
  mRecordPacket = 0;
  mRecordFormat = mQueue->description();
}

// A buffer that comes while recording ends still counts, but does not go round again.
void QBAudioMicrophone::takeBuffer(platform::QueueBuffer& buffer,
                                   const platform::AudioTimeStamp& start, std::uint32_t packets) {
  if (packets == kPackets && m_target) m_target->pushBuffer(start, buffer);
  if (isRunning()) {
    fillWithZeros(buffer);
    mQueue->enqueue(buffer);
  }
  mQueue->flush();
}

void QBAudioMicrophone::StopRecord() {
  if (!mQueue) return;
  mIsRunning = false;
  mQueue->flush();
  mQueue->stop();
  mQueue->reset();
  freeQueue();
}

void QBAudioMicrophone::freeQueue() {
  m_wasLost = mQueue->isLost();
  mIsRunning = false;
  mBuffers = {};
  mQueue.reset();
}

bool QBAudioMicrophone::hasEnded() const { return isRunning() && !mQueue->isRunning(); }

bool QBAudioMicrophone::isLost() const { return mQueue ? mQueue->isLost() : m_wasLost; }

QBSampleSource* QBAudioMicrophone::AudioBuffer() const { return m_analyser->m_source().get(); }

void QBAudioMicrophone::fillWithZeros(platform::QueueBuffer& buffer) {
  std::ranges::fill(buffer.data.first(buffer.sound().size()), std::byte{});
}

float QBAudioMicrophone::getVolume() const { return mQueue ? mQueue->volume() : 0; }

bool QBAudioMicrophone::timeIsValid(const platform::AudioTimeStamp& time) const {
  return mQueue && mQueue->currentTime().hostTime - time.hostTime < kValidFor;
}

}  // namespace korvel

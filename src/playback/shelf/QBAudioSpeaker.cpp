// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/shelf/QBAudioSpeaker.h"

#include <utility>

#include "analysis/chords/QBChordAnalyser.h"
#include "platform/loop/NotificationCenter.h"
#include "platform/sound/AudioSystem.h"

namespace korvel {

using platform::QueueBuffer;

QBAudioSpeaker::QBAudioSpeaker(QBChordAnalyser* analyser) : mAnalyser(analyser) {}

QBAudioSpeaker::~QBAudioSpeaker() { DisposeQueue(); }

void QBAudioSpeaker::SetupAudioFormat() { mDataFormat = platform::kLiveSound; }

void QBAudioSpeaker::SetupNewQueue() {
  makeQueue();
  mQueue->onRunningChanged([this] { noteRunning(); });
  mQueue->setVolume(1.0F);
  for (QueueBuffer*& buffer : mBuffers) {
    buffer = &mQueue->allocateBuffer(kBufferBytes);
    returnBuffer(*buffer);
  }
  mQueue->flush();
  mIsInitialized = true;
}

void QBAudioSpeaker::makeQueue() {
  DisposeQueue();
  mQueue = platform::AudioSystem::main().newOutput(
      platform::AudioSystem::kSystemDefault, mDataFormat,
      [this](QueueBuffer& buffer) { returnBuffer(buffer); });
  mDataFormat = mQueue->description();
}

void QBAudioSpeaker::start() {
  SetupAudioFormat();
  SetupNewQueue();
  // Only now: a speaker that was stopped before has enqueued nothing and plays silence. The order
  // is intended.
  mIsDone = false;
  mQueue->start();
}

int QBAudioSpeaker::stop() {
  mIsDone = true;
  if (!mQueue) return kNoQueue;
  mQueue->flush();
  mQueue->stop();
  mQueue.reset();
  return kStopped;
}

void QBAudioSpeaker::DisposeQueue() {
  if (mQueue) mQueue->stop();  // its callback needs it until then
  mQueue.reset();
  mIsInitialized = false;
}

void QBAudioSpeaker::returnBuffer(QueueBuffer& buffer) {
  if (mIsDone) return;
  mQueue->enqueue(buffer);
  mQueue->flush();
}

void QBAudioSpeaker::noteRunning() {
  mIsRunning = mQueue->isRunning();
  if (!mIsRunning) platform::NotificationCenter::defaultCenter().post(kPlaybackQueueStopped);
}

void QBAudioSpeaker::addBuffer(std::shared_ptr<QBSampleBlock> buffer) {
  const std::lock_guard lock(m_buffersLock);
  m_buffers.push_back(std::move(buffer));
}

std::shared_ptr<QBSampleBlock> QBAudioSpeaker::nextBuffer() {
  const std::lock_guard lock(m_buffersLock);
  if (m_buffers.empty()) return nullptr;
  std::shared_ptr<QBSampleBlock> first = std::move(m_buffers.front());
  m_buffers.pop_front();
  return first;
}

QBSampleSource* QBAudioSpeaker::AudioBuffer() const { return mAnalyser->m_source().get(); }

}  // namespace korvel

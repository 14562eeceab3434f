// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/SoundBackdrop.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "ui/desktop/Text.h"
#include "ui/roll/SpectrumImage.h"
#include "ui/roll/WaveShape.h"
#include "ui/views/Shades.h"
#include "workflow/recordings/KeptSounds.h"

namespace korvel::ui {
namespace {

constexpr double kWaveLines = 2.4;
constexpr double kTroubleLines = 1.3;
/// Often enough for what comes to seem to come at once.
constexpr int kMillisecondsToTell = 40;
/// The reference moves in steps, or every tile that comes would change the shade of all others.
constexpr int kStepOfLoudness = 12;

double columnsOfSecond(int level) {
  return precise::kFramesPerSecond / static_cast<double>(std::int64_t{1} << level);
}

/// A frame is what is around its moment, and a column of a higher level the mean of some.
double columnOf(double seconds, int level) {
  const double frames = static_cast<double>(std::int64_t{1} << level);
  return seconds * columnsOfSecond(level) - (frames - 1) / (2 * frames);
}

std::string nameOf(const SongRecording& recording) {
  return std::filesystem::path(recording.path()).filename().string();
}

}  // namespace

SoundBackdrop::SoundBackdrop(QObject* parent) : QObject(parent) {
  m_soon.setSingleShot(true);
  m_soon.setInterval(kMillisecondsToTell);
  connect(&m_soon, &QTimer::timeout, this, [this] {
    m_told = false;
    emit changed();
  });
}

SoundBackdrop::~SoundBackdrop() = default;

void SoundBackdrop::setSong(QBSong* song) {
  m_time = song ? RecordedTime(*song) : RecordedTime();
  m_difference = song ? differenceOf(*song) : QString();
  setRecording(m_time.isKnown() ? song->recording() : nullptr);
}

/// Between the song and its recording, in one line.
QString SoundBackdrop::differenceOf(QBSong& song) const {
  if (!song.recording() || song.allChords().empty()) return {};
  if (!m_time.isKnown())
    return tr(
        "The chords of this song do not follow its recording, so that there is no picture of "
        "it");
  if (const auto chord = firstOutOfStep(song))
    return tr("Bars were taken out or put in at chord %1, where the song differs from its "
              "recording")
        .arg(*chord + 1);
  return {};
}

void SoundBackdrop::setRecording(const SongRecording* recording) {
  const std::string path = recording ? recording->path() : std::string();
  if (recording == m_recording && path == m_path && !hasComeBack()) return;
  m_recording = recording;
  m_path = path;
  m_picture.reset();
  if (!recording) return;
  m_picture = std::make_unique<Picture>(
      Picture::File{.path = recording->path(),
                    .seconds = recording->seconds(),
                    .tuningOffset = recording->tuningOffset(),
                    .size = recording->hash().empty() ? -1 : recording->size(),
                    .hash = recording->hash(),
                    .copy = keptSoundOf(*recording)},
      [this] {
        if (!m_told.exchange(true)) QMetaObject::invokeMethod(&m_soon, qOverload<>(&QTimer::start));
      });
}

/// As a disk that was unplugged.
bool SoundBackdrop::hasComeBack() const {
  if (!m_picture || m_picture->trouble() != Picture::Trouble::missing) return false;
  std::error_code unknown;
  return std::filesystem::exists(m_path, unknown) ||
         std::filesystem::exists(keptSoundOf(*m_recording), unknown);
}

double SoundBackdrop::waveLines() const {
  if (!m_picture) return m_difference.isEmpty() ? 0 : kTroubleLines;
  return m_picture->trouble() == Picture::Trouble::none ? kWaveLines : kTroubleLines;
}

QString SoundBackdrop::trouble() const {
  if (!m_picture) return m_difference;
  const QString name = toText(nameOf(*m_recording));
  switch (m_picture->trouble()) {
    case Picture::Trouble::missing:
      return tr("The recording %1 is not there any more, so that there is no picture of it")
          .arg(name);
    case Picture::Trouble::changed:
      return tr("The recording %1 has changed since, so that there is no picture of it").arg(name);
    case Picture::Trouble::unreadable:
      return tr("The recording %1 cannot be read, so that there is no picture of it").arg(name);
    case Picture::Trouble::none:
      break;
  }
  return m_difference;
}

// ---- where the view is in the recording

double SoundBackdrop::secondsAt(const RollScale& scale, double x) const {
  return m_time.secondsOf(scale.stepAt(x));
}

double SoundBackdrop::samplesOfPixel(const RollScale& scale) const {
  const QRectF lanes = scale.lanes();
  const double seconds = secondsAt(scale, lanes.right()) - secondsAt(scale, scale.names());
  return seconds * platform::kSampleRate / std::max(1.0, lanes.right() - scale.names());
}

/// Whose columns are hardly wider than a pixel.
int SoundBackdrop::levelFor(const RollScale& scale) const {
  const double frames = samplesOfPixel(scale) / SoundTile::kSamplesOfColumn;
  const int level = frames > 1 ? static_cast<int>(std::log2(frames)) : 0;
  return std::min(level, m_picture->topLevel());
}

/// As far as the recording reaches.
SoundPicture::Stretch SoundBackdrop::stretchOf(const RollScale& scale, int level, double left,
                                               double right) const {
  const auto column = [&](double x, double beside) {
    const double last = static_cast<double>(m_picture->columns(level));
    return static_cast<std::int64_t>(
        std::clamp(std::floor(columnOf(secondsAt(scale, x), level)) + beside, -2.0, last + 2));
  };
  return {level, column(left, -1), column(right, 3)};
}

/// What shows first, then what is next to it.
void SoundBackdrop::want(const RollScale& scale) {
  const int level = levelFor(scale);
  const auto shown = stretchOf(scale, level, scale.names(), scale.lanes().right());
  const std::int64_t width = shown.end - shown.first;
  std::vector<Picture::Stretch> wanted{shown};
  if (samplesOfPixel(scale) < SoundTile::kSamplesOfColumn)
    wanted.push_back({SoundTile::kSampleLevel,
                      shown.first * static_cast<std::int64_t>(SoundTile::kSamplesOfColumn),
                      shown.end * static_cast<std::int64_t>(SoundTile::kSamplesOfColumn)});
  wanted.push_back({level, shown.end, shown.end + width});
  wanted.push_back({level, shown.first - width, shown.first});
  m_picture->want(wanted);
}

// ---- painting

void SoundBackdrop::paint(QPainter& painter, const QRect& part, const RollScale& scale,
                          const Shades& shades) {
  if (!m_picture || m_picture->trouble() != Picture::Trouble::none)
    return paintTrouble(painter, scale, shades);
  want(scale);
  const QRectF right(scale.names(), 0, std::max(0.0, scale.lanes().right() - scale.names()),
                     scale.height());
  const QRectF shown = QRectF(part).intersected(right);
  if (shown.isEmpty()) return;
  paintSpectrum(painter, shown.intersected(scale.lanes()), scale, shades);
  paintWave(painter, shown.intersected(scale.wave()), scale, shades);
  paintTrouble(painter, scale, shades);
}

void SoundBackdrop::paintSpectrum(QPainter& painter, const QRectF& area, const RollScale& scale,
                                  const Shades& shades) {
  if (area.isEmpty()) return;
  const int level = levelFor(scale);
  const auto stretch = stretchOf(scale, level, area.left(), area.right());
  const double ratio = painter.device()->devicePixelRatioF();
  std::vector<double> places(static_cast<std::size_t>(std::ceil(area.width() * ratio)));
  for (std::size_t x = 0; x < places.size(); ++x)
    places[x] =
        columnOf(secondsAt(scale, area.left() + (static_cast<double>(x) + 0.5) / ratio), level) -
        static_cast<double>(stretch.first);
  std::vector<double> bins(static_cast<std::size_t>(std::ceil(area.height() * ratio)));
  for (std::size_t y = 0; y < bins.size(); ++y)
    bins[y] = (scale.pitchAt(area.top() + (static_cast<double>(y) + 0.5) / ratio) -
               (precise::Analysis::kLowestPitch - 1)) *
              static_cast<double>(precise::kBinsPerSemitone);
  const int loud = (m_picture->loudShade() / kStepOfLoudness + 1) * kStepOfLoudness;
  QImage image = SpectrumImage(shades.text, loud).painted(m_picture->look(stretch), places, bins);
  image.setDevicePixelRatio(ratio);
  painter.drawImage(area.topLeft(), image);
}

void SoundBackdrop::paintWave(QPainter& painter, const QRectF& area, const RollScale& scale,
                              const Shades& shades) {
  if (area.isEmpty()) return;
  painter.setPen(shades.faintText);
  painter.setBrush(Qt::NoBrush);
  if (samplesOfPixel(scale) >= SoundTile::kSamplesOfColumn || !paintSamples(painter, area, scale))
    paintPeaks(painter, area, scale);
}

void SoundBackdrop::paintPeaks(QPainter& painter, const QRectF& area, const RollScale& scale) {
  const int level = levelFor(scale);
  const auto stretch = stretchOf(scale, level, area.left(), area.right());
  const auto columns = m_picture->look(stretch);
  WaveShape shape(scale.wave(), m_picture->loudestSample());
  for (double x = area.left(); x < area.right(); ++x) {
    const auto first =
        static_cast<std::int64_t>(std::floor(secondsAt(scale, x) * columnsOfSecond(level)));
    const auto end =
        static_cast<std::int64_t>(std::ceil(secondsAt(scale, x + 1) * columnsOfSecond(level)));
    shape.begin(x);
    for (auto column = std::max(first, stretch.first); column < std::min(end, stretch.end);
         ++column)
      if (const auto* peak = columns.peaks[static_cast<std::size_t>(column - stretch.first)])
        shape.add(peak->low, peak->high);
  }
  shape.paint(painter);
}

/// False as long as they are not there.
bool SoundBackdrop::paintSamples(QPainter& painter, const QRectF& area, const RollScale& scale) {
  const auto sampleAt = [&](double x) {
    return static_cast<std::int64_t>(std::floor(secondsAt(scale, x) * platform::kSampleRate));
  };
  const std::int64_t first = sampleAt(area.left()) - 1;
  const std::int64_t end = sampleAt(area.right() + 1) + 2;
  const auto samples = m_picture->samples(first, end);
  if (samples.empty()) return false;
  WaveShape shape(scale.wave(), m_picture->loudestSample());
  for (double x = area.left(); x < area.right(); ++x) {
    shape.begin(x);
    const auto last = static_cast<std::size_t>(std::max(sampleAt(x + 1), sampleAt(x) + 1) - first);
    for (auto at = static_cast<std::size_t>(sampleAt(x) - first); at <= last; ++at)
      shape.add(samples[at], samples[at]);
  }
  shape.paint(painter);
  return true;
}

void SoundBackdrop::paintTrouble(QPainter& painter, const RollScale& scale,
                                 const Shades& shades) const {
  if (trouble().isEmpty()) return;
  const QRectF room = scale.wave().adjusted(scale.names(), 0, 0, 0);
  const QFontMetricsF metrics(painter.font());
  const QString text = metrics.elidedText(trouble(), Qt::ElideMiddle, room.width());
  constexpr int kPlace = Qt::AlignLeft | Qt::AlignVCenter;
  painter.fillRect(metrics.boundingRect(room, kPlace, text), shades.base);  // over the wave
  painter.setPen(shades.faintText);
  painter.drawText(room, kPlace, text);
}

}  // namespace korvel::ui

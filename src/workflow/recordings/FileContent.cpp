// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/recordings/FileContent.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <stop_token>
#include <system_error>

#include "platform/loop/Workers.h"
#include "platform/media/ContentHash.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kReadAtOnce = std::int64_t{48} << 20;
/// So that who waits in steps does not turn in circles.
constexpr std::chrono::milliseconds kPatience{2};

/// What changes with the content of a file.
struct FileStamp {
  std::int64_t size = -1;
  fs::file_time_type time{};
  bool operator==(const FileStamp&) const = default;
};

struct ReadFile {
  FileStamp stamp;
  std::string content;
};

/// A file that another thread reads.
struct FileReading {
  explicit FileReading(const FileStamp& before) : stamp(before) {}

  const FileStamp stamp;
  std::atomic<std::int64_t> read = 0;
  std::string content;  ///< The other thread's until it is over.
};

struct ReadingJob {
  std::shared_ptr<FileReading> reading;
  std::shared_ptr<platform::WorkerJob> job;
};

struct Contents {
  std::map<fs::path, ReadFile> known;
  std::map<fs::path, ReadingJob> readings;
  platform::Workers readers{1};
};

Contents& contents() {
  static Contents all;
  return all;
}

std::optional<FileStamp> stampOf(const fs::path& file) {
  std::error_code unknown;
  const auto size = fs::file_size(file, unknown);
  if (unknown) return {};
  const auto time = fs::last_write_time(file, unknown);
  if (unknown) return {};
  return FileStamp{static_cast<std::int64_t>(size), time};
}

/// What could not be read, or changed meanwhile, is not known.
void remember(const fs::path& file, const FileStamp& before, const std::string& content) {
  if (!content.empty() && stampOf(file) == before) contents().known[file] = {before, content};
}

/// Empty where less can be read than there is.
std::string digitsOf(platform::ContentHash& hash, const FileStamp& stamp) {
  return hash.size() == stamp.size ? hash.digits() : std::string();
}

/// Takes over what the other thread has found; false as long as it reads.
bool harvest(const fs::path& file) {
  const auto found = contents().readings.find(file);
  if (found == contents().readings.end()) return true;
  if (!found->second.job->isOver()) return false;
  const ReadingJob done = found->second;
  contents().readings.erase(found);
  done.job->requireDone();
  remember(file, done.reading->stamp, done.reading->content);
  return true;
}

}  // namespace

std::optional<std::string> knownContent(const fs::path& file) {
  if (!harvest(file)) return {};
  const auto found = contents().known.find(file);
  if (found == contents().known.end() || stampOf(file) != found->second.stamp) return {};
  return found->second.content;
}

bool isContentAtHand(const fs::path& file) {
  const auto stamp = stampOf(file);
  return !stamp || stamp->size <= kReadAtOnce || knownContent(file);
}

std::string contentOf(const fs::path& file) {
  if (const auto known = knownContent(file)) return *known;
  const auto stamp = stampOf(file);
  if (!stamp) return {};
  platform::ContentHash hash(file);
  while (hash.step()) continue;
  std::string content = digitsOf(hash, *stamp);
  remember(file, *stamp, content);
  return content;
}

void readAhead(const fs::path& file) {
  const auto stamp = stampOf(file);
  if (!stamp || knownContent(file) || contents().readings.contains(file)) return;
  const auto reading = std::make_shared<FileReading>(*stamp);
  const auto job = contents().readers.begin([reading, file](const std::stop_token& stopping) {
    platform::ContentHash hash(file);
    while (!stopping.stop_requested() && hash.step()) reading->read = hash.size();
    reading->content = digitsOf(hash, reading->stamp);
  });
  contents().readings[file] = {reading, job};
}

platform::Slices readingContent(fs::path file) {
  readAhead(file);
  const auto found = contents().readings.find(file);
  if (found == contents().readings.end()) co_return;
  const ReadingJob under = found->second;
  const auto size = static_cast<double>(std::max<std::int64_t>(under.reading->stamp.size, 1));
  while (!harvest(file)) {
    co_yield std::min(1.0, static_cast<double>(under.reading->read) / size);
    under.job->waitFor(kPatience);
  }
}

}  // namespace korvel

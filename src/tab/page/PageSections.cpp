// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/PageSections.h"

#include <algorithm>
#include <optional>

namespace korvel {
namespace {

constexpr std::size_t kBarsOfLine = 4;
constexpr std::size_t kLongestRepeat = 32;
/// What comes again at a distance is not looked for in longer songs: it takes the square of it.
constexpr std::size_t kMostBars = 1500;

struct Stretch {
  std::size_t first;
  std::size_t count;
  int times;

  std::size_t end() const { return first + count * static_cast<std::size_t>(times); }
};

class Folding {
 public:
  explicit Folding(std::span<const int> bars) : m_bars(bars) {}

  std::vector<FoldedBars> sections() {
    foldRepeats();
    splitByRepeated();
    if (m_bars.size() <= kMostBars)
      while (splitByLongest()) {
      }
    joinEqual();
    return numbered();
  }

 private:
  std::span<const int> of(const Stretch& part) const {
    return m_bars.subspan(part.first, part.count);
  }
  bool isSame(std::size_t a, std::size_t b, std::size_t count) const {
    return std::ranges::equal(m_bars.subspan(a, count), m_bars.subspan(b, count));
  }

  int timesOf(std::size_t first, std::size_t count) const {
    int times = 1;
    for (std::size_t next = first + count;
         next + count <= m_bars.size() && isSame(first, next, count); next += count)
      ++times;
    return times;
  }

  /// One chord for bars on end is four bars of it, and no shorter loop.
  bool isLoop(std::size_t first, std::size_t count) const {
    const auto unit = m_bars.subspan(first, count);
    const bool isOne = std::ranges::all_of(unit, [&unit](int bar) { return bar == unit.front(); });
    return !isOne || count == kBarsOfLine || (count == 1 && unit.front() >= 0);
  }

  /// The shortest loop of some length that begins there and fills a line at least.
  std::optional<Stretch> repeatAt(std::size_t first, std::size_t shortest, std::size_t longest,
                                  int fewest) const {
    for (std::size_t count = shortest; count <= longest; ++count) {
      if (first + 2 * count > m_bars.size()) break;
      const int times = timesOf(first, count);
      const std::size_t all = count * static_cast<std::size_t>(times);
      if (times >= fewest && all >= kBarsOfLine && isLoop(first, count))
        return Stretch{first, count, times};
    }
    return std::nullopt;
  }

  /// A loop of less than a line, unless one of whole lines goes on for longer.
  std::optional<Stretch> repeatAt(std::size_t first) const {
    constexpr int kFewestOfShort = 3;
    const auto within = repeatAt(first, 1, kBarsOfLine - 1, kFewestOfShort);
    const auto lines = repeatAt(first, kBarsOfLine, kLongestRepeat, 2);
    if (within && lines) return lines->end() > within->end() ? lines : within;
    return within ? within : lines;
  }

  /// Begun later where the bars since then fill whole lines, if it comes as often there: a round of
  /// four chords in which one was another goes on with the next round, and not behind that chord.
  Stretch afterWholeLines(const Stretch& repeat, std::size_t since) const {
    const std::size_t lines = (repeat.first - since + kBarsOfLine - 1) / kBarsOfLine;
    const std::size_t first = since + lines * kBarsOfLine;
    const bool comesAsOften = first < repeat.first + repeat.count &&
                              first + repeat.count <= m_bars.size() &&
                              timesOf(first, repeat.count) >= repeat.times;
    return comesAsOften ? Stretch{first, repeat.count, repeat.times} : repeat;
  }

  void foldRepeats() {
    std::size_t from = 0;
    std::size_t at = 0;
    const auto addRest = [&] {
      if (at > from) m_parts.push_back({from, at - from, 1});
    };
    while (at < m_bars.size()) {
      auto repeat = repeatAt(at);
      if (!repeat) {
        ++at;
        continue;
      }
      repeat = afterWholeLines(*repeat, from);
      at = repeat->first;
      addRest();
      m_parts.push_back(*repeat);
      from = at = repeat->end();
    }
    addRest();
  }

  /// Cuts bars [first, first + count) out of a part that is played once.
  void cut(std::size_t part, std::size_t first, std::size_t count) {
    const Stretch whole = m_parts[part];
    std::vector<Stretch> pieces;
    if (first > whole.first) pieces.push_back({whole.first, first - whole.first, 1});
    pieces.push_back({first, count, 1});
    if (first + count < whole.end())
      pieces.push_back({first + count, whole.end() - first - count, 1});
    const auto at = m_parts.begin() + static_cast<std::ptrdiff_t>(part);
    m_parts.insert(m_parts.erase(at), pieces.begin(), pieces.end());
  }

  /// A loop that is played once elsewhere is the same section there.
  void splitByRepeated() {
    const std::vector<Stretch> all = m_parts;
    for (const Stretch& unit : all) {
      if (unit.times == 1 || unit.count < kBarsOfLine) continue;
      for (std::size_t i = 0; i < m_parts.size(); ++i) {
        const Stretch part = m_parts[i];
        if (part.times > 1 || part.count <= unit.count) continue;
        const auto bars = of(part);
        const auto sought = of(unit);
        const auto found = std::search(bars.begin(), bars.end(), sought.begin(), sought.end());
        if (found == bars.end()) continue;
        const auto offset = static_cast<std::size_t>(found - bars.begin());
        cut(i, part.first + offset, unit.count);
      }
    }
  }

  /// The longest run of bars that two places have in common becomes a part at both. Parts that are
  /// the same as a whole are sections already.
  bool splitByLongest() {
    Common best;
    for (std::size_t a = 0; a < m_parts.size(); ++a)
      for (std::size_t b = a; b < m_parts.size(); ++b)
        if (m_parts[a].times == 1 && m_parts[b].times == 1) findCommon(a, b, best);
    best.count -= best.count % kBarsOfLine;  // sections are whole lines
    if (best.count == 0) return false;
    cutAt(best.second, best.count);
    cutAt(best.first, best.count);
    return true;
  }

  struct Common {
    std::size_t first = 0;
    std::size_t second = 0;
    std::size_t count = 0;
  };

  void findCommon(std::size_t partA, std::size_t partB, Common& best) const {
    const Stretch& a = m_parts[partA];
    const Stretch& b = m_parts[partB];
    if (partA != partB && std::ranges::equal(of(a), of(b))) return;
    std::vector<std::size_t> before(b.count + 1);
    std::vector<std::size_t> now(b.count + 1);
    for (std::size_t i = 0; i < a.count; ++i) {
      for (std::size_t j = 0; j < b.count; ++j) {
        const std::size_t first = a.first + i;
        const std::size_t second = b.first + j;
        const bool goesOn = second > first && m_bars[first] == m_bars[second];
        now[j + 1] = goesOn ? before[j] + 1 : 0;
        // Within one part the two runs must not overlap.
        const std::size_t count = std::min(now[j + 1], second - std::min(first, second));
        if (count > best.count) best = {first + 1 - count, second + 1 - count, count};
      }
      std::swap(before, now);
    }
  }

  void cutAt(std::size_t first, std::size_t count) {
    for (std::size_t i = 0; i < m_parts.size(); ++i)
      if (m_parts[i].first <= first && first < m_parts[i].end()) {
        if (m_parts[i].count > count) cut(i, first, count);
        return;
      }
  }

  void joinEqual() {
    std::vector<Stretch> joined;
    for (const Stretch& part : m_parts) {
      if (!joined.empty() && std::ranges::equal(of(joined.back()), of(part)))
        joined.back().times += part.times;
      else
        joined.push_back(part);
    }
    m_parts = std::move(joined);
  }

  std::vector<FoldedBars> numbered() const {
    std::vector<FoldedBars> sections;
    std::size_t kinds = 0;
    for (const Stretch& part : m_parts) {
      const auto known = std::ranges::find_if(sections, [&](const FoldedBars& each) {
        return std::ranges::equal(m_bars.subspan(each.first, each.count), of(part));
      });
      const std::size_t kind = known == sections.end() ? kinds++ : known->kind;
      sections.push_back({part.first, part.count, part.times, kind});
    }
    return sections;
  }

  std::span<const int> m_bars;
  std::vector<Stretch> m_parts;
};

}  // namespace

std::vector<FoldedBars> foldedBars(std::span<const int> bars) { return Folding(bars).sections(); }

}  // namespace korvel

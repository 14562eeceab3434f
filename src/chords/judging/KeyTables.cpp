// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/judging/KeyTables.h"

#include <initializer_list>
#include <span>

namespace korvel::chords {
namespace {

constexpr unsigned kindSet(std::initializer_list<Kind> kinds) {
  unsigned set = 0;
  for (const Kind kind : kinds) set |= 1U << static_cast<unsigned>(kind);
  return set;
}

struct Degree {
  int semitones;
  unsigned kinds;
};

using enum Kind;
constexpr Degree kMajorOwn[] = {{0, kindSet({major, majorSeventh, suspendedFourth})},
                                {2, kindSet({minor, minorSeventh})},
                                {4, kindSet({minor, minorSeventh})},
                                {5, kindSet({major, majorSeventh})},
                                {7, kindSet({major, seventh, suspendedFourth})},
                                {9, kindSet({minor, minorSeventh})},
                                {11, kindSet({diminished, halfDiminished})}};
constexpr Degree kMajorBorrowed[] = {
    {0, kindSet({seventh})},        {2, kindSet({seventh, major})}, {4, kindSet({seventh, major})},
    {9, kindSet({seventh, major})}, {5, kindSet({minor, seventh})}, {10, kindSet({major})},
    {8, kindSet({major})},          {3, kindSet({major})},          {7, kindSet({minor})},
    {11, kindSet({minor})},         {1, kindSet({diminished})},     {6, kindSet({halfDiminished})}};
constexpr Degree kMinorOwn[] = {
    {0, kindSet({minor, minorSeventh})},
    {2, kindSet({diminished, halfDiminished})},
    {3, kindSet({major, majorSeventh})},
    {5, kindSet({minor, minorSeventh})},
    {7, kindSet({minor, minorSeventh, seventh, major, suspendedFourth})},
    {8, kindSet({major, majorSeventh})},
    {10, kindSet({major, seventh})}};
constexpr Degree kMinorBorrowed[] = {{0, kindSet({suspendedFourth, seventh})},
                                     {5, kindSet({major, seventh})},
                                     {1, kindSet({major})},
                                     {3, kindSet({seventh})},
                                     {8, kindSet({seventh})},
                                     {2, kindSet({minor})}};
constexpr Degree kBluesOwn[] = {
    {0, kindSet({seventh, major})}, {5, kindSet({seventh, major})}, {7, kindSet({seventh, major})}};
constexpr Degree kBluesBorrowed[] = {{0, kindSet({minor, minorSeventh})},
                                     {2, kindSet({seventh, minorSeventh})},
                                     {9, kindSet({seventh})},
                                     {6, kindSet({diminished})},
                                     {7, kindSet({minorSeventh})}};

struct Table {
  std::span<const Degree> own, borrowed;
};
constexpr std::array<Table, kModes> kTables{
    {{kMajorOwn, kMajorBorrowed}, {kMinorOwn, kMinorBorrowed}, {kBluesOwn, kBluesBorrowed}}};

bool has(std::span<const Degree> degrees, int degree, Kind kind) {
  for (const Degree& one : degrees)
    if (one.semitones == degree && (one.kinds >> static_cast<unsigned>(kind) & 1U) != 0)
      return true;
  return false;
}

}  // namespace

Home homeOf(Mode mode, int degree, Kind kind) {
  const Table& table = kTables[static_cast<std::size_t>(mode)];
  if (has(table.own, degree, kind)) return Home::own;
  return has(table.borrowed, degree, kind) ? Home::borrowed : Home::foreign;
}

}  // namespace korvel::chords

// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/spectrum/QBFrequencyMapper.h"

#include <array>

#include "analysis/spectrum/BinTable.h"

namespace korvel {
namespace {

// D2 stands one bin above the one nearest to it, and E2 one below: stored songs and measured
// instruments were made with these places.
constexpr auto kSmallTable = binTable<225>(std::to_array<BinTone>(
    {{0, 73.41F},   {1, 77.78F},   {2, 82.41F},   {4, 87.31F},   {6, 92.5F},    {8, 98.0F},
     {11, 103.8F},  {13, 110.0F},  {15, 116.5F},  {18, 123.5F},  {21, 130.8F},  {23, 138.6F},
     {27, 146.8F},  {30, 155.6F},  {33, 164.8F},  {37, 174.6F},  {41, 185.0F},  {45, 196.0F},
     {49, 207.6F},  {54, 220.0F},  {59, 233.1F},  {64, 246.9F},  {69, 261.6F},  {75, 277.2F},
     {81, 293.7F},  {88, 311.1F},  {94, 329.6F},  {102, 349.2F}, {109, 370.0F}, {118, 392.0F},
     {126, 415.3F}, {135, 440.0F}, {145, 466.2F}, {155, 493.9F}, {166, 523.3F}, {178, 554.4F},
     {190, 587.3F}, {203, 622.3F}, {217, 659.3F}}));

constexpr auto kBigTable = binTable<112>(std::to_array<BinTone>(
    {{0, 82.41F},      {1, 87.31035F},  {2, 92.50209F},  {3, 98.00255F},  {4, 103.83F},
     {5, 110.0041F},   {7, 116.5453F},  {8, 123.4754F},  {9, 130.8177F},  {11, 138.5965F},
     {12, 146.8379F},  {14, 155.5693F}, {16, 164.8199F}, {17, 174.6141F}, {19, 184.9972F},
     {21, 195.9977F},  {24, 207.6523F}, {26, 219.9999F}, {28, 233.0304F}, {31, 246.8871F},
     {34, 261.5678F},  {36, 277.1214F}, {40, 293.5999F}, {43, 311.1306F}, {46, 329.6313F},
     {50, 349.2322F},  {54, 369.9987F}, {58, 391.9999F}, {62, 415.2346F}, {67, 439.9257F},
     {72, 466.0851F},  {77, 493.7999F}, {82, 523.2073F}, {88, 554.3189F}, {94, 587.2804F},
     {101, 622.2019F}, {107, 659.1999F}}));

}  // namespace

std::span<const float> QBFrequencyMapper::smallD(const QBTuning* /*tuning*/) { return kSmallTable; }

std::span<const float> QBFrequencyMapper::bigD(const QBTuning* /*tuning*/) { return kBigTable; }

}  // namespace korvel

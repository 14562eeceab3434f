// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/SampleStore.h"

#include "support/Testing.h"

namespace korvel::precise {
namespace {

std::vector<float> read(const SampleStore& store, std::ptrdiff_t first, std::size_t count) {
  std::vector<float> values(count, -1.0F);
  store.read(first, values);
  return values;
}

TEST(SampleStore, readsAnywhereAndForgetsWhatWasReleased) {
  std::vector<float> samples(200000);
  std::iota(samples.begin(), samples.end(), 1.0F);
  SampleStore store;
  store.append(std::span(samples).first(70001));
  store.append({});
  store.append(std::span(samples).subspan(70001));
  ASSERT_EQ(store.size(), samples.size());

  EXPECT_EQ(read(store, 0, samples.size()), samples);
  EXPECT_EQ(read(store, -2, 4), (std::vector<float>{0, 0, 1, 2}));
  EXPECT_EQ(read(store, 199998, 4), (std::vector<float>{199999, 200000, 0, 0}));
  EXPECT_EQ(read(store, -9, 4), std::vector<float>(4));
  EXPECT_EQ(read(store, 300000, 4), std::vector<float>(4));

  store.release(-1000);
  EXPECT_EQ(read(store, 0, 1), std::vector<float>{1});
  store.release(150000);
  store.release(140000);
  const std::vector<float> rest = read(store, 0, samples.size());
  EXPECT_EQ(rest.front(), 0);
  EXPECT_TRUE(std::equal(samples.begin() + 150000, samples.end(), rest.begin() + 150000));
}

}  // namespace
}  // namespace korvel::precise

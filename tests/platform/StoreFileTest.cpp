// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreFile.h"

#include "platform/BookStore.h"
#include "platform/sqlite/StoreError.h"
#include "support/store/StoreContents.h"

namespace korvel::platform::test {
namespace {

/// A closed store with long texts and with pages that are free again.
struct StoreFileTest : BookStoreTest {
  StoreFileTest() {
    for (int i = 0; i < 30; ++i) {
      Book* made = book("book " + std::to_string(i));
      made->setText(std::string(static_cast<std::size_t>(i) * 300, 'x'));
      page(i, made);
    }
    m_context->save();
    for (const auto& each : m_context->fetchAll<Book>("Book"))
      if (numbers(*each).front() % 5 == 0) m_context->remove(*each);
    m_context->save();
    m_context.reset();
  }
  /// Opens it.
  std::string contents() const { return korvel::test::contentsOf(*m_file.open()); }

  std::string m_path = m_folder.file("books.sqlite");
};

TEST_F(StoreFileTest, isRefusedAndLeftAloneOrHoldsTheSameWhateverBitIsTurned) {
  const std::string held = contents();
  const std::string sound = korvel::test::readFile(m_path);
  std::size_t refused = 0;
  for (std::size_t at = 0; at < sound.size(); at += at < 100 ? 1 : 997) {
    std::string damaged = sound;
    damaged[at] = static_cast<char>(damaged[at] ^ 1 << at % 8);
    korvel::test::writeFile(m_path, damaged);
    try {
      EXPECT_EQ(contents(), held) << at;
    } catch (const StoreError&) {
      ++refused;
      EXPECT_EQ(korvel::test::readFile(m_path), damaged) << at;
    }
  }
  EXPECT_GT(refused, 100U + sound.size() / 2000) << "most pages hold something";
}

}  // namespace
}  // namespace korvel::platform::test

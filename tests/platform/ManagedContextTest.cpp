// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/ManagedContext.h"

#include "platform/BookStore.h"
#include "platform/sqlite/StoreError.h"

namespace korvel::platform {
namespace {

using test::Book;
using test::Cover;
using test::Page;
using ManagedContextTest = test::BookStoreTest;

TEST_F(ManagedContextTest, savedGraphComesBackInCreationOrder) {
  Book* saved = book("Études");
  saved->setText("long");
  for (const int number : {3, 1, 2}) page(number, saved)->setRatio(0.1 * number);
  m_context->insert("Book");
  m_context->save();
  reopen();
  const Ref<Book> read = onlyBook();
  EXPECT_EQ(read->title(), "Études");
  EXPECT_EQ(read->text(), "long");
  EXPECT_EQ(numbers(*read), (std::vector{3, 1, 2}));
  EXPECT_EQ(read->pages().at(0)->ratio(), 0.1 * 3);
  EXPECT_EQ(read->pages().at(0)->book(), read.get());
  const Ref<Book> untitled = m_context->fetchAll<Book>("Book").at(1);
  EXPECT_FALSE(untitled->hasTitle()) << "an attribute that was never set";
  reopen();
  EXPECT_EQ(read->title(), "Études") << "objects outlive their context";
}

// Pages are created, moved and deleted at random between saves and reopenings, in books whose pages
// were read already or not. Numbers rise with creation, so each book's own must be sorted.
TEST_F(ManagedContextTest, anyOrderOfChangesKeepsCreationOrder) {
  std::mt19937 random(7);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  std::vector<std::set<int>> expected(3);
  for (const char* title : {"a", "b", "c"}) book(title);
  auto books = m_context->fetchAll<Book>("Book");
  for (int number = 1; number <= 600; ++number) {
    const std::size_t at = below(3);
    page(number, books[at]);
    expected[at].insert(number);
    const auto pages = m_context->fetchAll<Page>("Page");
    Page* moved = pages[below(pages.size())];
    for (auto& numbers : expected) numbers.erase(moved->number());
    if (below(3) == 0) {
      m_context->remove(*moved);
    } else {
      const std::size_t to = below(3);
      moved->setBook(books[to]);
      expected[to].insert(moved->number());
    }
    if (below(8) == 0) m_context->save();
    if (below(20) == 0) {
      m_context->save();
      reopen();
      books = m_context->fetchAll<Book>("Book");
    }
    const std::size_t read = below(3);
    if (below(4) == 0) {
      ASSERT_EQ(numbers(*books[read]), std::vector(expected[read].begin(), expected[read].end()));
    }
  }
}

TEST_F(ManagedContextTest, deletedObjectIsNotTakenBackAsTheOtherEnd) {
  Page* owner = page(1, book("b"));
  Ref<Cover> gone(static_cast<Cover*>(m_context->insert("Cover")));
  m_context->remove(*gone);
  owner->setCover(gone);
  gone = nullptr;
  EXPECT_EQ(owner->cover(), nullptr);
}

TEST_F(ManagedContextTest, oneToOneMovesItsOtherEnd) {
  Book* owner = book("b");
  Page* one = page(1, owner);
  page(2, owner);
  auto* cover = static_cast<Cover*>(m_context->insert("Cover"));
  one->setCover(cover);
  m_context->save();
  reopen();
  const auto pages = onlyBook()->pages().snapshot();
  pages[1]->setCover(pages[0]->cover());
  EXPECT_EQ(pages[0]->cover(), nullptr);
  ASSERT_NE(pages[1]->cover(), nullptr);
  EXPECT_EQ(pages[1]->cover()->page(), pages[1].get());
}

TEST_F(ManagedContextTest, deletedObjectStaysReadableAndLeavesItsRelationships) {
  Book* owner = book("b");
  const Ref<Page> gone = page(7, owner);
  owner->setMark(gone);
  m_context->save();
  m_context->remove(*gone);
  EXPECT_EQ(gone->number(), 7);
  EXPECT_EQ(gone->book(), nullptr);
  EXPECT_TRUE(owner->pages().empty());
  EXPECT_EQ(owner->mark(), gone.get()) << "a reference without an inverse is not cleared";
  owner->setTitle("changed");
  m_context->save();
  reopen();
  EXPECT_EQ(onlyBook()->mark(), nullptr);
  EXPECT_TRUE(onlyBook()->pages().empty());
}

TEST_F(ManagedContextTest, nothingIsWrittenBeforeSaveAndFailedSaveKeepsTheChanges) {
  book("b");
  EXPECT_EQ(m_context->store().integer("SELECT count(*) FROM Book"), 0);
  m_context->store().execute(
      "CREATE TRIGGER full BEFORE INSERT ON Page BEGIN SELECT RAISE(ABORT, 'disk full'); END");
  page(1, nullptr);
  EXPECT_THROW(m_context->save(), StoreError);
  EXPECT_EQ(m_context->store().integer("SELECT count(*) FROM Book"), 0) << "all or nothing";
  m_context->store().execute("DROP TRIGGER full");
  m_context->save();
  EXPECT_EQ(m_context->store().integer("SELECT count(*) FROM Book"), 1);
  EXPECT_FALSE(m_context->hasChanges());
}

TEST_F(ManagedContextTest, openingSweepsWhatNothingReaches) {
  Page* orphan = page(1, nullptr);
  orphan->setCover(static_cast<Cover*>(m_context->insert("Cover")));
  page(2, book("kept"));
  m_context->save();
  reopen();
  EXPECT_EQ(m_context->store().integer("SELECT count(*) FROM Page"), 1);
  EXPECT_EQ(m_context->store().integer("SELECT count(*) FROM Cover"), 0);
}

TEST_F(ManagedContextTest, newObjectsKeepClearOfOddIdsInADamagedStore) {
  m_context->store().execute(
      "PRAGMA foreign_keys = OFF; INSERT INTO Page(id, book) VALUES(-7, 1), (-5, 1);"
      "INSERT INTO Cover(id, page) VALUES(9223372036854775807, -5)");
  const auto pages = m_context->fetchAll<Page>("Page");
  Book* lost = pages.at(0)->book();
  EXPECT_NE(book("new"), lost) << "a row that is missing, but referred to";
  EXPECT_NE(page(1, nullptr)->objectId(), page(2, nullptr)->objectId());
  EXPECT_THROW(m_context->insert("Cover"), StoreError);
}

TEST_F(ManagedContextTest, newObjectTakesTheReferencesThatAwaitItsIdInADamagedStore) {
  m_context->store().execute("PRAGMA foreign_keys = OFF; INSERT INTO Page(id, book) VALUES(1, 1)");
  Book* made = book("new");
  ASSERT_EQ(made->objectId(), 1);
  const auto pages = m_context->fetchAll<Page>("Page");
  EXPECT_EQ(pages.at(0)->book(), made);
  m_context->save();
  EXPECT_EQ(onlyBook().get(), made);
  EXPECT_EQ(pages.at(0)->book(), made);
}

}  // namespace
}  // namespace korvel::platform

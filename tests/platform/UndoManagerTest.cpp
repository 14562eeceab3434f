// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/UndoManager.h"

#include "platform/BookStore.h"
#include "support/store/StoreContents.h"

namespace korvel::platform {
namespace {

using test::Book;
using test::Cover;
using test::Page;

constexpr auto titled = &UserText::verbatim;

struct UndoManagerTest : test::BookStoreTest {
  UndoManager& undo() { return m_context->undoManager(); }
  void act(const std::string& name, const std::function<void()>& work) {
    const UndoGroup group(undo(), titled(name));
    work();
  }
  /// Hundreds of saves, none of which has to survive a power cut.
  void quicken() {
    m_context->store().execute("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY");
  }
  std::string saved() {
    m_context->save();
    return korvel::test::contentsOf(m_context->store());
  }
  /// The whole graph as objects tell it, both ends of each relationship.
  std::string told() {
    std::string text;
    for (const auto& book : m_context->fetchAll<Book>("Book")) {
      text += book->title() + '/' + book->text() + '/' + idOf(book->mark()) + ':';
      for (const Page* page : book->pages()) text += ' ' + idOf(page);
      text += '\n';
    }
    for (const auto& page : m_context->fetchAll<Page>("Page"))
      text += idOf(page) + ' ' + std::to_string(page->number()) + ' ' + idOf(page->book()) + ' ' +
              idOf(page->cover()) + '\n';
    for (const auto& cover : m_context->fetchAll<Cover>("Cover"))
      text += idOf(cover) + " covers " + idOf(cover->page()) + '\n';
    return text;
  }
  static std::string idOf(const ManagedObject* object) {
    if (!object) return "-";
    return std::to_string(object->objectId()) + (object->isDeleted() ? "?" : "");
  }
};

/// Does anything to a store of books.
class Vandal {
 public:
  Vandal(ManagedContext& context, unsigned seed) : m_context(context), m_random(seed) {}

  bool oneIn(unsigned count) { return m_random() % count == 0; }
  void act() {
    Book* book = any<Book>("Book");
    Page* page = any<Page>("Page");
    Cover* cover = any<Cover>("Cover");
    switch (m_random() % 11) {
      case 0:
        return static_cast<Book*>(m_context.insert("Book"))->setTitle(word());
      case 1:
      case 2:
        return static_cast<Page*>(m_context.insert("Page"))->setBook(book);
      case 3:
        return static_cast<Cover*>(m_context.insert("Cover"))->setPage(page);
      case 4:
        return page ? page->setCover(cover) : void();
      case 5:
        return page ? page->setBook(oneIn(3) ? nullptr : book) : void();
      case 6:
        return page ? page->setNumber(static_cast<int>(m_random() % 100)) : void();
      case 7:
        return book ? book->setMark(page) : void();
      case 8:
        return book ? (oneIn(2) ? book->setText(word()) : book->setTitle(word())) : void();
      case 9:
        return remove(page);
      default:
        return oneIn(2) ? remove(cover) : oneIn(3) ? remove(book) : void();
    }
  }

 private:
  template <class T>
  T* any(const char* entity) {
    const auto all = m_context.fetchAll<T>(entity);
    return all.empty() ? nullptr : all[m_random() % all.size()].get();
  }
  std::string word() { return std::to_string(m_random()); }
  void remove(ManagedObject* object) {
    if (object) m_context.remove(*object);
  }

  ManagedContext& m_context;
  std::mt19937 m_random;
};

// Actions of random changes on a store that was partly read, taken back and done again with saves
// at any moment. What objects tell must be right at every step; files are compared where one is
// known.
TEST_F(UndoManagerTest, anyActionsAreTakenBackAndDoneAgainWhateverWasSaved) {
  quicken();
  for (unsigned seed = 1; seed <= 12 && !HasFailure(); ++seed) {
    const testing::ScopedTrace trace(__FILE__, __LINE__, std::to_string(seed));
    Vandal vandal(*m_context, seed);
    for (int i = 0; i < 15; ++i) vandal.act();
    m_context->save();
    reopen();
    quicken();
    Vandal other(*m_context, seed + 1000);
    std::vector<std::string> told{this->told()};
    std::vector<std::optional<std::string>> saved{this->saved()};
    for (int action = 0; action < 10; ++action) {
      act(std::to_string(action), [&] {
        m_context->insert("Cover");
        for (int i = 0; i < 12; ++i) {
          other.act();
          if (other.oneIn(20)) m_context->save();
        }
      });
      told.push_back(this->told());
      saved.emplace_back();
      if (other.oneIn(2)) saved.back() = this->saved();
    }
    const auto expectLevel = [&](std::size_t level) {
      ASSERT_EQ(this->told(), told[level]) << level;
      if (!other.oneIn(2)) return;
      if (!saved[level]) saved[level] = this->saved();
      ASSERT_EQ(this->saved(), *saved[level]) << level;
    };
    for (int round = 0; round < 2; ++round) {
      for (std::size_t level = 10; level-- > 0;) {
        EXPECT_EQ(undo().undoActionName().english(), std::to_string(level));
        ASSERT_TRUE(undo().undo());
        expectLevel(level);
      }
      EXPECT_EQ(this->saved(), *saved[0]);
      EXPECT_FALSE(undo().undo());
      for (std::size_t level = 1; level <= 10; ++level) {
        ASSERT_TRUE(undo().redo());
        expectLevel(level);
      }
      EXPECT_FALSE(undo().canRedo());
    }
    m_context->save();
    EXPECT_TRUE(StoreFile::problems(m_context->store()).empty());
  }
}

TEST_F(UndoManagerTest, groupsWithinOneAnotherAreOneAndEmptyOnesNone) {
  Book* changed = book("b");
  {
    const UndoGroup whole(undo(), titled("Whole"));
    {
      UndoGroup part(undo(), titled("Part"));
      changed->setTitle("c");
      part.rollBack();
    }
    EXPECT_THROW(undo().undo(), std::logic_error);
    changed->setTitle("d");
  }
  EXPECT_TRUE(undo().undo());
  EXPECT_EQ(changed->title(), "b");
  act("Empty", [] {});
  EXPECT_EQ(undo().redoActionName().english(), "Whole");
  {
    UndoGroup failed(undo(), titled("Failed"));
    page(2, changed);
    EXPECT_TRUE(failed.rollBack());
  }
  EXPECT_TRUE(undo().redo()) << "nothing was done";
  EXPECT_EQ(told(), "d//-:\n");
  undo().undo();
  act("Next", [&] { changed->setTitle("e"); });
  EXPECT_FALSE(undo().canRedo());
  {
    UndoGroup failed(undo(), titled("Failed"));
    page(1, changed);
    m_context->save();
    m_context->remove(*changed);
    failed.rollBack();
  }
  EXPECT_EQ(told(), "e//-:\n");
  EXPECT_EQ(undo().undoActionName().english(), "Next");
}

// A job that fills a book of its own, as an import does, while somebody acts at random and goes
// back and forth. In the end all of it can be undone and done again.
TEST_F(UndoManagerTest, anyActionsBesideOneInStepsAreTakenBackAndDoneAgain) {
  quicken();
  for (unsigned seed = 1; seed <= 60 && !HasFailure(); ++seed) {
    const testing::ScopedTrace trace(__FILE__, __LINE__, std::to_string(seed));
    reopen();
    quicken();
    Vandal vandal(*m_context, seed);
    for (int i = 0; i < 10; ++i) vandal.act();
    const auto vandalise = [&] {
      m_context->insert("Cover");
      vandal.act();
    };
    const std::string before = told();
    act("Before", vandalise);
    auto job = std::make_shared<UndoGroup>(undo(), titled("Job"));
    const Ref<Book> filled = book("filled");
    job->suspend();
    for (int step = 0; step < 40; ++step) {
      if (vandal.oneIn(4)) {
        const UndoStep part(job);
        if (!filled->isDeleted()) page(step, filled);
      } else if (vandal.oneIn(3)) {
        undo().undo();
      } else if (vandal.oneIn(2)) {
        undo().redo();
      } else {
        act(std::to_string(step), vandalise);
      }
      if (vandal.oneIn(10)) m_context->save();
    }
    job.reset();
    act("After", vandalise);
    std::vector<std::string> levels{told()};
    while (undo().undo()) levels.push_back(told());
    EXPECT_EQ(levels.back(), before);
    for (levels.pop_back(); undo().redo(); levels.pop_back()) ASSERT_EQ(told(), levels.back());
    EXPECT_TRUE(levels.empty());
    m_context->save();
    EXPECT_TRUE(StoreFile::problems(m_context->store()).empty());
  }
}

TEST_F(UndoManagerTest, actionUnderWayIsPassedOverUnlessItUsesWhatWouldGo) {
  Book* owner = book("b");
  act("Rename", [&] { owner->setTitle("c"); });
  auto steps = std::make_unique<UndoGroup>(undo(), titled("Steps"));
  Ref<Page> made = page(1, owner);
  steps->suspend();
  EXPECT_TRUE(undo().undo());
  EXPECT_EQ(owner->title(), "b");
  EXPECT_EQ(undo().undoWaitsFor().english(), "Steps") << "there is nothing else";
  EXPECT_FALSE(undo().undo());
  steps->resume();
  page(2, owner);
  steps->suspend();
  EXPECT_EQ(undo().redoActionName().english(), "Rename") << "steps are nothing new";
  EXPECT_TRUE(undo().redo());

  act("Delete", [&] { m_context->remove(*made); });
  undo().undo();
  EXPECT_FALSE(undo().canRedo()) << "more may have been made of it meanwhile";
  steps.reset();
  EXPECT_EQ(undo().undoActionName().english(), "Steps");

  Book* shelf = nullptr;
  act("New Book", [&] { shelf = book("new"); });
  steps = std::make_unique<UndoGroup>(undo(), titled("More steps"));
  page(3, shelf);
  steps->suspend();
  EXPECT_EQ(undo().undoActionName().english(), "New Book");
  EXPECT_EQ(undo().undoWaitsFor().english(), "More steps");
  EXPECT_FALSE(undo().undo());
  act("Renumber", [&] { shelf->pages().at(0)->setNumber(4); });
  act("Move", [&] { made->setBook(shelf); });
  steps->rollBack();
  EXPECT_EQ(undo().undoWaitsFor().english(), "");
  EXPECT_EQ(undo().undoActionName().english(), "Move")
      << "what is left of them, not what went with the page";
  EXPECT_TRUE(undo().undo());
  EXPECT_EQ(undo().undoActionName().english(), "New Book");
  auto orphan = std::make_unique<UndoGroup>(undo(), titled("Cut off"));
  reopen();
  orphan.reset();
}

}  // namespace
}  // namespace korvel::platform

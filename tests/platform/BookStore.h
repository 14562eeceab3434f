// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/ManagedContext.h"
#include "platform/sqlite/StoreFile.h"
#include "support/Testing.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform::test {

using korvel::test::ScratchFolder;

class Page;

class Cover final : public ManagedObject {
 public:
  static EntityDescription describe() {
    return EntityBuilder<Cover>("Cover").toOne<&Cover::m_page>("page", "Page", "cover").build();
  }
  Page* page() const;
  void setPage(Page* page);

 private:
  ToOne<Page> m_page;
};

class Book final : public ManagedObject {
 public:
  static EntityDescription describe() {
    return EntityBuilder<Book>("Book")
        .root()
        .attribute<&Book::m_title>("title")
        .attribute<&Book::m_text>("text", Fetch::onDemand)
        .toOne<&Book::m_mark>("mark", "Page")
        .toMany<&Book::m_pages>("pages", "Page", "book")
        .build();
  }
  const std::string& title() const { return read(m_title); }
  void setTitle(std::string title) { assign(m_title, std::move(title)); }
  bool hasTitle() const { return has(m_title); }
  const std::string& text() const { return readOnDemand(m_text); }
  void setText(std::string text) { assign(m_text, std::move(text)); }
  Members<Page> pages() const { return members(m_pages); }
  Page* mark() const { return target(m_mark); }
  void setMark(Page* page) { relate(m_mark, page); }

 private:
  Attribute<std::string> m_title, m_text;
  ToOne<Page> m_mark;
  ToMany<Page> m_pages;
};

class Page final : public ManagedObject {
 public:
  static EntityDescription describe() {
    return EntityBuilder<Page>("Page")
        .attribute<&Page::m_number>("number")
        .attribute<&Page::m_ratio>("ratio")
        .toOne<&Page::m_book>("book", "Book", "pages")
        .toOneInverse<&Page::m_cover>("cover", "Cover", "page", true)
        .build();
  }
  int number() const { return read(m_number); }
  void setNumber(int number) { assign(m_number, number); }
  double ratio() const { return read(m_ratio); }
  void setRatio(double ratio) { assign(m_ratio, ratio); }
  Book* book() const { return target(m_book); }
  void setBook(Book* book) { relate(m_book, book); }
  Cover* cover() const { return target(m_cover); }
  void setCover(Cover* cover) { relate(m_cover, cover); }

 private:
  Attribute<int> m_number;
  Attribute<double> m_ratio;
  ToOne<Book> m_book;
  ToOneInverse<Cover> m_cover;
};

inline Page* Cover::page() const { return target(m_page); }

inline void Cover::setPage(Page* page) { relate(m_page, page); }

/// A store of books, for what is tested without a song.
class BookStoreTest : public testing::Test {
 protected:
  BookStoreTest() { m_context.emplace(m_file.create(), m_model); }

  void reopen() {
    m_context.reset();
    m_context.emplace(m_file.open(), m_model);
  }
  Book* book(const std::string& title) {
    auto* made = static_cast<Book*>(m_context->insert("Book"));
    made->setTitle(title);
    return made;
  }
  Page* page(int number, Book* owner) {
    auto* made = static_cast<Page*>(m_context->insert("Page"));
    made->setNumber(number);
    made->setBook(owner);
    return made;
  }
  Ref<Book> onlyBook() { return m_context->fetchAll<Book>("Book").at(0); }
  static std::vector<int> numbers(const Book& book) {
    std::vector<int> all;
    for (const Page* page : book.pages()) all.push_back(page->number());
    return all;
  }

  ScratchFolder m_folder;
  ObjectModel m_model{{Book::describe(), Page::describe(), Cover::describe()}};
  StoreFile m_file{m_folder.file("books.sqlite"), m_model, {0x54455354, 3}};
  std::optional<ManagedContext> m_context;
};

}  // namespace korvel::platform::test

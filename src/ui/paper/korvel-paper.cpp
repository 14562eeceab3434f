// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFontDatabase>
#include <QGuiApplication>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "tab/paper/PrintedSong.h"
#include "ui/desktop/Languages.h"
#include "ui/desktop/Text.h"
#include "ui/page/PagePapers.h"
#include "ui/paper/PaperFiles.h"
#include "ui/views/TablaturePages.h"

// Draws the song that it reads from its input (`PrintedSong.h`) as its first word says, "pdf",
// "png" or "svg", on paper that its second word names, "" for the usual one. Writes the files to
// its output, each behind a line with how many bytes it has. What went wrong is said on its
// standard error; its status is 1 then.

namespace {

using namespace korvel;

QPageSize paperNamed(const QString& name) {
  if (name == "a4") return QPageSize(QPageSize::A4);
  if (name == "letter") return QPageSize(QPageSize::Letter);
  return ui::usualPaper();
}

ui::PaperWork workOf(const PrintedSong& song) {
  if (const auto* page = std::get_if<SongPage>(&song.content))
    return ui::pageWork(*page, QGuiApplication::font(), ui::PageSheet::Parts::all);
  return ui::tablatureWork(std::get<PrintedTablature>(song.content), ui::toText(song.title),
                           QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

void draw(const QStringList& words) {
  const auto format = ui::paperFormatOf('.' + words.value(1).toStdString());
  if (!format) throw std::runtime_error("korvel-cli starts this program, which is not for users");
  if (QFontDatabase::families().isEmpty())
    throw std::runtime_error("there are no letters to draw with; install fonts-dejavu-core");
  std::istreambuf_iterator<char> input(std::cin);
  const PrintedSong song = takenOver({input, {}});
  for (const QByteArray& file : ui::drawnAs(*format, workOf(song), paperNamed(words.value(2)))) {
    std::cout << file.size() << '\n';
    std::cout.write(file.data(), file.size());
  }
  if (!std::cout.flush()) throw std::runtime_error("what was drawn cannot be handed over");
}

}  // namespace

int main(int argc, char** argv) {
  // Needs no screen, and what the library says of its surroundings concerns nobody here.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  const QGuiApplication application(argc, argv);
  ui::applyLanguage({});
  try {
    draw(QGuiApplication::arguments());
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "korvel-paper: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}

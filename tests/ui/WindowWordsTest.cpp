// SPDX-License-Identifier: GPL-3.0-or-later
// What the window says to those who hear it, who have no mouse, and who speak German.

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QScrollBar>
#include <QSettings>
#include <QTabWidget>
#include <cerrno>
#include <system_error>

#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/midi/Synthesizer.h"
#include "platform/sound/AudioSystem.h"
#include "support/Testing.h"
#include "support/store/ScratchFolder.h"
#include "ui/desktop/Languages.h"
#include "ui/desktop/QtRunLoop.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/AlertBox.h"
#include "ui/dialogs/SelfCheckDialog.h"
#include "ui/dialogs/SettingsDialog.h"
#include "ui/dialogs/TuningDialog.h"
#include "ui/dialogs/guides/EasyDialog.h"
#include "ui/dialogs/guides/PractiseDialog.h"
#include "ui/dialogs/guides/SingAlongDialog.h"
#include "ui/dialogs/guides/StrumDialog.h"
#include "ui/library/SongMenu.h"
#include "ui/library/TreeModel.h"
#include "ui/sound/PlayerBar.h"
#include "ui/window/MainWindow.h"
#include "workflow/arranging/SongCommands.h"
#include "workflow/exporting/RenderSongCommand.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/TuningEdits.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SelfCheck.h"
#include "workflow/session/StoreSeeding.h"

namespace korvel::ui {
namespace {

/// A control speaks for its parts, such as the list of a combo box, which is a window; scroll bars
/// are moved by what they scroll.
bool isPart(const QWidget& widget) {
  const QWidget* parent = widget.parentWidget();
  return qobject_cast<const QScrollBar*>(&widget) || qobject_cast<const QHeaderView*>(&widget) ||
         qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent) ||
         widget.objectName().startsWith("qt_");
}

bool isControl(const QWidget& widget) {
  return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(&widget);
}

std::string nameless(const QWidget& window) {
  std::string found;
  for (const QWidget* each : window.findChildren<QWidget*>()) {
    if (each->window() != &window || !isControl(*each) || isPart(*each)) continue;
    auto* seen = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(each));
    if (seen->text(QAccessible::Name).isEmpty())
      found += std::string(each->metaObject()->className()) + " in " +
               each->parentWidget()->metaObject()->className() + '\n';
  }
  return found;
}

/// Letters that two texts beside each other answer to.
std::string clashes(const QStringList& texts) {
  std::string found;
  QMap<QChar, QString> taken;
  for (const QString& each : texts) {
    const QKeySequence key = QKeySequence::mnemonic(each);
    if (key.isEmpty()) continue;
    const QChar letter = key.toString().back();
    if (taken.contains(letter)) found += (taken[letter] + " / " + each + '\n').toStdString();
    taken[letter] = each;
  }
  return found;
}

std::string clashes(const QList<QAction*>& entries) {
  std::string found;
  QStringList texts;
  for (const QAction* each : entries) {
    texts << each->text();
    if (each->menu()) found += clashes(each->menu()->actions());
  }
  return found + clashes(texts);
}

QStringList textsOf(const QWidget& page) {
  QStringList texts;
  for (const QLabel* each : page.findChildren<QLabel*>())
    if (each->buddy()) texts << each->text();
  for (const QAbstractButton* each : page.findChildren<QAbstractButton*>()) texts << each->text();
  return texts;
}

std::string withoutMnemonic(const QMenuBar& bar) {
  std::string found;
  for (const QAction* each : bar.actions())
    if (QKeySequence::mnemonic(each->text()).isEmpty()) found += each->text().toStdString() + '\n';
  return found;
}

/// A window with a library, in a language.
struct Words {
  explicit Words(const QString& language) {
    QSettings().clear();
    QBTabMgr::clearDb();
    QBTabMgr::setStorePath(m_folder.file("Korvel.sqlite"));
    initializeData(QBTabMgr::db());
    platform::RunLoop::install(&m_loop);
    applyLanguage(language);
  }
  ~Words() {
    applyLanguage("en");
    platform::RunLoop::install(nullptr);
    QBTabMgr::clearDb();
  }

  const test::ScratchFolder m_folder;
  QtRunLoop m_loop{[](const std::exception& error) { FAIL() << error.what(); }};
  AlertBox m_alert;
};

struct WindowWordsTest : Words, testing::TestWithParam<const char*> {
  WindowWordsTest() : Words(GetParam()) {}
};

TEST_P(WindowWordsTest, everyControlHasANameForScreenReaders) {
  MainWindow window(m_alert);
  window.show();
  EXPECT_EQ(nameless(window), "");
  SettingsDialog settings(nullptr);
  EXPECT_EQ(nameless(settings), "");
  EXPECT_EQ(nameless(TuningDialog(*QBTabMgr::db().selectedTuning(), nullptr)), "");
  EXPECT_EQ(nameless(SelfCheckDialog(nullptr)), "");
}

TEST_P(WindowWordsTest, playerFitsSmallWindows) {
  MainWindow window(m_alert);
  window.show();
  window.resize(1024, 700);
  auto* player = window.findChild<PlayerBar*>();
  player->showTempo(120);
  QCoreApplication::processEvents();
  EXPECT_FALSE(player->findChild<QWidget*>("qt_toolbar_ext_button")->isVisible());
}

TEST_P(WindowWordsTest, guidesAreReachedByLettersAndHeard) {
  QBSong& song = *QBTabMgr::db().createAlbum("Practice", false)->createSong("Blues");
  const EasyDialog easy(song);
  const SingAlongDialog sing(song);
  const StrumDialog strum(song);
  const PractiseDialog practise(song, {}, PlayerBar::kSlowest, PlayerBar::kFastest);
  for (const GuideDialog* each :
       std::initializer_list<const GuideDialog*>{&easy, &sing, &strum, &practise}) {
    EXPECT_EQ(nameless(*each), "");
    EXPECT_EQ(clashes(textsOf(*each)), "");
  }
}

TEST_P(WindowWordsTest, menusAreReachedByLettersOfTheirOwn) {
  const MainWindow window(m_alert);
  EXPECT_EQ(withoutMnemonic(*window.menuBar()), "");
  EXPECT_EQ(clashes(window.menuBar()->actions()), "");
}

TEST_P(WindowWordsTest, songCommandsSayWhatComesOut) {
  QMenu menu;
  addSongCommands(menu, [](const SongCommand&) {});
  QStringList silent;
  int entries = 0;
  QList<QMenu*> menus = menu.findChildren<QMenu*>();
  menus << &menu;
  for (QMenu* each : std::as_const(menus))
    for (const QAction* entry : each->actions()) {
      if (entry->menu() || entry->isSeparator()) continue;
      ++entries;
      const bool isEnglish = entry->toolTip().startsWith("Each chord without its lowest");
      if (entry->statusTip().isEmpty() || entry->toolTip() != entry->statusTip() ||
          !each->toolTipsVisible() || (isEnglish && GetParam() == std::string("de")))
        silent << entry->text();
    }
  EXPECT_EQ(silent.join(' '), "");
  EXPECT_EQ(entries, 70);
}

TEST_P(WindowWordsTest, settingsAreReachedByLettersOfTheirOwn) {
  const SettingsDialog settings(nullptr);
  const auto& pages = *settings.findChild<QTabWidget*>();
  QStringList around = textsOf(*settings.findChild<QDialogButtonBox*>());
  for (int i = 0; i < pages.count(); ++i) around << pages.tabText(i);
  for (int i = 0; i < pages.count(); ++i)
    EXPECT_EQ(clashes(around + textsOf(*pages.widget(i))), "");
}

INSTANTIATE_TEST_SUITE_P(Languages, WindowWordsTest, testing::Values("en", "de"),
                         [](const auto& tested) { return std::string(tested.param); });

struct GermanWordsTest : Words, testing::Test {
  GermanWordsTest() : Words("de") {}
  static QString refusal(const std::function<void()>& act) {
    try {
      act();
    } catch (const std::exception& problem) {
      return translated(problem);
    }
    return {};
  }
};

TEST_F(GermanWordsTest, tellWhatIsWrongWithAName) {
  EXPECT_EQ(refusal([] { newAlbum(" "); }), "Ein Album braucht einen Namen; gib einen ein");
  const std::string name = "50 % %2";
  newTuning(KnownTuning::openG, name);
  EXPECT_EQ(refusal([&] { newTuning(KnownTuning::openG, name); }),
            "50 % %2: Eine Stimmung dieses Namens gibt es schon; wähle einen anderen Namen");
}

/// What is wrong with a file is found in layers far below, and handed up as a part of other texts.
TEST_F(GermanWordsTest, tellWhatLowerLayersPassOn) {
  const std::string file = m_folder.file("Notes.wav");
  platform::writeAtomically(file, "no sound");
  EXPECT_EQ(refusal([&] { requireSound(file); }),
            toText(file + ": lässt sich nicht öffnen: Es ist keine Ton- oder Mediendatei in einem "
                          "bekannten Format"));
  const platform::FileError full("a.wav", platform::FileError::kCannotWrite, ENOSPC);
  MainWindow window(m_alert);
  window.findChild<PlayerBar*>()->showProblem(platform::AudioError(full.text()).text());
  EXPECT_EQ(window.statusMessage(), toText("a.wav: kann nicht geschrieben werden: " +
                                           std::generic_category().message(ENOSPC) +
                                           "; schaffe Platz oder wähle einen anderen Ort"));
  EXPECT_EQ(translated(std::runtime_error("Something else")), "Something else");
}

TEST_F(GermanWordsTest, tellResultsAndTitles) {
  for (const SelfCheck& check : selfChecks()) {
    try {
      const platform::UserText found = check.run();
      EXPECT_NE(translated(found), toText(found.english()));
    } catch (const std::exception& problem) {
      EXPECT_NE(translated(problem), toText(problem.what()));
    }
  }
  EXPECT_EQ(translated(undoTitle(*findSongCommand("transposeUpBy1"))),
            "Um einen Halbton nach oben transponieren");
  const auto job =
      std::make_shared<RenderSongCommand>(nullptr, RenderedPart::song, "A.wav", nullptr);
  EXPECT_EQ(translated(job->fullTitle()), "WAV-Export: A.wav");
}

TEST_F(GermanWordsTest, logWhatIsDone) {
  const MainWindow window(m_alert);
  newAlbum("A");
  QBSession::session().undo();
  EXPECT_TRUE(window.log().endsWith("Album angelegt.\nRückgängig gemacht: Neues Album"))
      << window.log().toStdString();
  for (const SongMenuSection& section : songMenu())
    for (const SongCommand& command : section.items)
      EXPECT_TRUE(command.message.empty() ||
                  translated(command.message) != toText(command.message.english))
          << command.message.english;
}

/// A desktop names all languages that its user understands, the best one first.
TEST(GermanTest, isNotSpokenToThoseWhoPreferEnglish) {
  applyLanguages({"en-GB", "de"});
  EXPECT_EQ(TreeModel::tr("Library"), "Library");
  applyLanguages({"pt-BR", "de-AT", "en"});
  EXPECT_EQ(TreeModel::tr("Library"), "Bibliothek");
  applyLanguage("en");
}

}  // namespace
}  // namespace korvel::ui

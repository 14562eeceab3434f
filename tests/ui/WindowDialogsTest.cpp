// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs that are filled in and accepted, and what is so then.

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSlider>
#include <QSpinBox>
#include <QStatusBar>

#include "support/songs/BeatSong.h"
#include "support/songs/ChordLines.h"
#include "support/sound/HandAudio.h"
#include "ui/MainWindowTest.h"
#include "ui/desktop/Preferences.h"
#include "ui/dialogs/SettingsDialog.h"
#include "ui/dialogs/TapDialog.h"
#include "ui/dialogs/hearing/HearingChoice.h"
#include "ui/sound/PlayerBar.h"
#include "ui/window/FindBar.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

struct WindowDialogsTest : MainWindowTest {
  /// Has the dialog that an entry opens used by a hand.
  template <class Dialog>
  void inDialogOf(const QString& entry, const std::function<void(Dialog&)>& use) {
    bool isUsed = false;
    QTimer::singleShot(0, &*m_window, [&] {
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      isUsed = true;
      use(*dialog);
    });
    action(entry)->trigger();
    EXPECT_TRUE(isUsed) << entry.toStdString();
  }
  static void accept(QDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); }
};

/// What can be set, with what it is set to; parts of other controls are left out.
QStringList stateOf(const QDialog& dialog) {
  QStringList state;
  for (const QWidget* each : dialog.findChildren<QWidget*>()) {
    const bool isPart = qobject_cast<const QComboBox*>(each->parentWidget()) ||
                        qobject_cast<const QAbstractSpinBox*>(each->parentWidget());
    if (isPart || !each->isEnabled()) continue;
    if (const auto* choice = qobject_cast<const QComboBox*>(each)) state << choice->currentText();
    if (const auto* box = qobject_cast<const QCheckBox*>(each))
      state << box->text() + (box->isChecked() ? " yes" : " no");
    if (const auto* slider = qobject_cast<const QSlider*>(each))
      state << QString::number(slider->value());
    if (const auto* number = qobject_cast<const QAbstractSpinBox*>(each)) state << number->text();
    if (const auto* line = qobject_cast<const QLineEdit*>(each)) state << line->text();
  }
  return state;
}

/// Sets all that can be to something else; lines to that. Of a band chords are written in bars
/// whatever is chosen beside it.
void changeAll(QDialog& dialog, const QString& line) {
  for (auto* choice : dialog.findChildren<QComboBox*>()) {
    choice->setCurrentIndex((choice->currentIndex() + 1) % std::max(choice->count(), 1));
    if (choice->currentText() == "A band: its chords") choice->setCurrentIndex(2);
  }
  for (auto* box : dialog.findChildren<QCheckBox*>()) box->toggle();
  for (auto* slider : dialog.findChildren<QSlider*>()) slider->setValue(slider->value() + 7);
  for (auto* number : dialog.findChildren<QAbstractSpinBox*>()) number->stepBy(1);
  for (auto* each : dialog.findChildren<QLineEdit*>())
    if (each->isEnabled() && !qobject_cast<QAbstractSpinBox*>(each->parentWidget()) &&
        !qobject_cast<QComboBox*>(each->parentWidget()))
      each->setText(line);
}

TEST_F(WindowDialogsTest, settingsAreKeptWhenTheyAreAcceptedOnly) {
  const QString folder = QString::fromStdString(m_folder.path()) + '/';
  QStringList before;
  QStringList set;
  inDialogOf<SettingsDialog>("Settings ...", [&](SettingsDialog& dialog) {
    before = stateOf(dialog);
    changeAll(dialog, folder);
    dialog.reject();
  });
  inDialogOf<SettingsDialog>("Settings ...", [&](SettingsDialog& dialog) {
    EXPECT_EQ(stateOf(dialog).join("; ").toStdString(), before.join("; ").toStdString());
    changeAll(dialog, folder);
    set = stateOf(dialog);
    accept(dialog);
  });
  inDialogOf<SettingsDialog>("Settings ...", [&](SettingsDialog& dialog) {
    EXPECT_EQ(stateOf(dialog).join("; ").toStdString(), set.join("; ").toStdString());
    EXPECT_GT(set.size(), 15);
    dialog.reject();
  });
}

TEST(HearingChoiceTest, looksAtTheSensitivityAndLeavesItAsItIs) {
  for (int percent = 0; percent <= 100; ++percent) {
    QWidget page;
    QFormLayout form(&page);
    precise::Settings settings;
    settings.sensitivity = percent / 100.0;
    EXPECT_DOUBLE_EQ(HearingChoice(form, settings).settings().sensitivity, percent / 100.0);
  }
}

TEST_F(WindowDialogsTest, folderThatIsNoneIsRefusedAndNothingElseKept) {
  const QString theme = QSettings().value("theme").toString();
  inDialogOf<SettingsDialog>("Settings ...", [&](SettingsDialog& dialog) {
    changeAll(dialog, QString::fromStdString(m_file));
    QString told;
    QTimer::singleShot(0, &dialog, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      told = box->text();
      box->accept();
    });
    accept(dialog);
    EXPECT_TRUE(told.contains("Tune.wav")) << told.toStdString();
    EXPECT_TRUE(dialog.isVisible()) << "to be mended";
    dialog.reject();
  });
  EXPECT_EQ(QSettings().value("theme").toString(), theme);
}

TEST_F(WindowDialogsTest, chordsAreFoundRoundTheSongAndTheAnswerGoesWithTheName) {
  QBSong* song = QBTabMgr::db().createAlbum("Practice", false)->createSong("Waltz");
  test::beatSong(song, "3/4 Am:x02210 h. | G:320003 h. | Am:x02210 h. |");
  QBSession::session().refreshTree();
  QBSession::session().setActiveSong(song);
  auto& bar = *m_window->findChild<FindBar*>();
  auto& name = *bar.findChild<QLineEdit*>();
  const auto labels = bar.findChildren<QLabel*>();
  const auto answer = [&] { return labels.last()->text(); };
  m_window->activateWindow();
  action("Find Chord ...")->trigger();
  EXPECT_EQ(m_window->focusWidget(), &name);
  QTest::keyClicks(&name, "G");
  QTest::keyClick(&name, Qt::Key_Return);
  EXPECT_EQ(m_window->tablature().cursorChord(), 1);
  QTest::keyClick(&name, Qt::Key_Return);
  EXPECT_EQ(m_window->tablature().cursorChord(), 1) << "the only one";
  QTest::keyClicks(&name, "7");
  QTest::keyClick(&name, Qt::Key_Return);
  EXPECT_EQ(answer(), "No chord \"G7\"");
  name.selectAll();
  QTest::keyClicks(&name, "Am");
  EXPECT_EQ(answer(), "") << "was about another name";
  for (const int chord : {2, 0, 2}) {
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_EQ(m_window->tablature().cursorChord(), chord);
  }
  for (auto* button : bar.findChildren<QPushButton*>())
    if (button->text() == "&Previous") button->click();
  EXPECT_EQ(m_window->tablature().cursorChord(), 0);
  QTest::keyClick(&name, Qt::Key_Escape);
  EXPECT_FALSE(bar.isVisible());
  EXPECT_EQ(m_window->focusWidget(), &m_window->tablature());
}

TEST_F(WindowDialogsTest, whatTheStatusBarSaysCanBeReadWhole) {
  m_window->resize(500, 600);
  action("Print ...")->trigger();
  EXPECT_EQ(m_window->statusBar()->toolTip(), "Choose a song with chords first");
}

TEST_F(WindowDialogsTest, tapsBecomeTheBeatsOfTheSong) {
  static test::HandAudio audio;  // outlives the player
  platform::AudioSystem::install(&audio);
  import();
  QBSong& song = *m_window->tablature().song();
  auto& player = *m_window->findChild<PlayerBar*>();
  const std::string before = test::drawn(song);
  inDialogOf<TapDialog>("Tap Along ...", [&](TapDialog& dialog) {
    EXPECT_TRUE(player.song());
    auto* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    for (int tap = 0; tap < 8; ++tap) {
      audio.play(11025);
      QTest::qWait(60);
      QTest::keyClick(&dialog, Qt::Key_T);
    }
    EXPECT_TRUE(ok->isEnabled());
    EXPECT_EQ(dialog.taps().size(), 8U);
    for (std::size_t tap = 1; tap < dialog.taps().size(); ++tap)
      EXPECT_NEAR(dialog.taps()[tap] - dialog.taps()[tap - 1], 0.25, 0.1);
    ok->click();
  });
  EXPECT_FALSE(player.song()) << "it plays for the dialog only";
  EXPECT_NE(test::drawn(song), before);
  action("Edit")->menu()->actions().front()->trigger();
  EXPECT_TRUE(log().endsWith("Undo Tap Along")) << log().toStdString();
  EXPECT_EQ(test::drawn(song), before);
  platform::AudioSystem::install(nullptr);
}

}  // namespace
}  // namespace korvel::ui

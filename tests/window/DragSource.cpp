// SPDX-License-Identifier: GPL-3.0-or-later
// A window that files can be dragged out of, in place of a file manager: DragSource FILE...
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

class Files final : public QLabel {
 public:
  explicit Files(QList<QUrl> files) : QLabel("Files"), m_files(std::move(files)) {
    setWindowTitle("Files");
    resize(120, 60);
    move(0, 0);
  }

 protected:
  void mouseMoveEvent(QMouseEvent*) override {
    if (m_dragging) return;
    m_dragging = true;
    auto* files = new QMimeData;
    files->setUrls(m_files);
    auto* drag = new QDrag(this);
    drag->setMimeData(files);
    drag->exec(Qt::CopyAction);
    m_dragging = false;
  }

 private:
  QList<QUrl> m_files;
  bool m_dragging = false;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QList<QUrl> files;
  for (const QString& file : application.arguments().mid(1)) files << QUrl::fromLocalFile(file);
  Files window(files);
  window.show();
  return QApplication::exec();
}

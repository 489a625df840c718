// Stands in for a file manager: a window from which the files that it is given can be dragged.

#include <QApplication>
#include <QDrag>
#include <QMainWindow>
#include <QMimeData>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

class Files : public QMainWindow {
  public:
    explicit Files(QList<QUrl> files)
        : m_files(std::move(files)) {
        setWindowTitle(u"Files"_s);
        resize(160, 80);
    }

  protected:
    void mousePressEvent(QMouseEvent* /*event*/) override {
        auto* drag = new QDrag(this);
        auto* files = new QMimeData;
        files->setUrls(m_files);
        drag->setMimeData(files);
        drag->exec(Qt::CopyAction);
    }

  private:
    QList<QUrl> m_files;
};

} // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QList<QUrl> files;
    for (const QString& path : QApplication::arguments().sliced(1)) {
        files << QUrl::fromLocalFile(path);
    }
    Files window(files);
    window.show();
    return QApplication::exec();
}

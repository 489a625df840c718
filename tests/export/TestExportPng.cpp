#include "export/TestExportPng.h"

#include "export/ExportPng.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// Files of this process stop growing at a size, as on a disk that is full.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit tight{.rlim_cur = bytes, .rlim_max = m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    FullDisk(FullDisk&&) = delete;
    FullDisk& operator=(FullDisk&&) = delete;

  private:
    rlimit m_old{};
    void (*m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

class Folder {
  public:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QStringList files() const {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

  private:
    QTemporaryDir m_folder;
};

/// Every pixel another colour, so that little of it can be compressed away.
QImage picture(QSize size = {300, 200}) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, qRgb(x * 7 ^ y * 13, x * y, (x + y) * 31));
        }
    }
    return image;
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

void TestExportPng::writesThePicture() {
    const Folder folder;
    const QString path = folder.path(u"è 李.png"_s);
    QCOMPARE(ExportPng(picture(), path), pngWritten);
    const QImage read(path, "png");
    QCOMPARE(read.size(), QSize(300, 200));
    QVERIFY(!read.hasAlphaChannel());
    QVERIFY(read.textKeys().isEmpty());
    QCOMPARE(read.convertToFormat(QImage::Format_RGB32), picture());
    QCOMPARE(folder.files(), QStringList{u"è 李.png"_s});

    Drawing drawing;
    drawing.add(FilledBox{.area = {2, 1, 3, 2}, .fill = 0x0000FF});
    QCOMPARE(ExportPng(drawing, QFont(), {8, 4}, path), pngWritten);
    const QImage drawn(path, "png");
    QCOMPARE(drawn.size(), QSize(8, 4));
    QCOMPARE(drawn.pixelColor(2, 1), QColor(Qt::red));
    QCOMPARE(drawn.pixelColor(5, 1), QColor(Qt::white));
}

void TestExportPng::replacesAnOldPicture() {
    const Folder folder;
    const QString path = folder.path(u"a.png"_s);
    writeFile(path, QByteArray(100'000, 'x'));
    QCOMPARE(ExportPng(picture(), path), pngWritten);
    QCOMPARE(QImage(path, "png").size(), QSize(300, 200));
}

void TestExportPng::withoutASize() {
    const Folder folder;
    const QString path = folder.path(u"a.png"_s);
    QCOMPARE(ExportPng(QImage(), path), pngNoPicture);
    for (const QSize size : {QSize(0, 100), QSize(100, 0), QSize(-5, 10), QSize(40'000, 10)}) {
        QCOMPARE(ExportPng(Drawing(), QFont(), size, path), pngNoPicture);
    }
    QCOMPARE(folder.files(), QStringList());
}

void TestExportPng::tooLarge() {
    const Folder folder;
    QCOMPARE(ExportPng(Drawing(), QFont(), {32'000, 32'000}, folder.path(u"a.png"_s)),
             pngOutOfMemory);
    QCOMPARE(folder.files(), QStringList());
}

void TestExportPng::outOfMemory() {
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer reserves more addresses than this test leaves");
#else
    const Folder folder;
    QFile statm(u"/proc/self/statm"_s);
    QVERIFY(statm.open(QIODevice::ReadOnly));
    const rlim_t used = statm.readAll().split(' ').constFirst().toULongLong() *
                        static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    rlimit old{};
    QCOMPARE(getrlimit(RLIMIT_AS, &old), 0);
    const rlimit tight{.rlim_cur = used + 64 * 1024 * 1024, .rlim_max = old.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_AS, &tight), 0);
    const std::uint8_t code =
        ExportPng(Drawing(), QFont(), {10'000, 10'000}, folder.path(u"a.png"_s));
    QCOMPARE(setrlimit(RLIMIT_AS, &old), 0);
    QCOMPARE(code, pngOutOfMemory);
    QCOMPARE(folder.files(), QStringList());
#endif
}

void TestExportPng::noFolder() {
    const Folder folder;
    QCOMPARE(ExportPng(picture(), folder.path(u"missing/a.png"_s)), pngFileFailed);
    writeFile(folder.path(u"file"_s), "x");
    QCOMPARE(ExportPng(picture(), folder.path(u"file/a.png"_s)), pngFileFailed);
    QCOMPARE(ExportPng(picture(), QString()), pngFileFailed);
    QCOMPARE(folder.files(), QStringList{u"file"_s});
}

void TestExportPng::aFolderInTheWay() {
    const Folder folder;
    QVERIFY(QDir().mkpath(folder.path(u"a.png/b"_s)));
    QCOMPARE(ExportPng(picture(), folder.path(u"a.png"_s)), pngFileFailed);
    QVERIFY(QDir(folder.path(u"a.png/b"_s)).exists());
}

void TestExportPng::aDeviceIsNotReplaced() {
    // A link, so that the machine's own device is safe even if the test fails.
    const Folder folder;
    const QString path = folder.path(u"a.png"_s);
    QVERIFY(QFile::link(u"/dev/full"_s, path));
    QCOMPARE(ExportPng(picture(), path), pngFileFailed);
    QVERIFY(QFileInfo(path).isSymLink());
    QVERIFY(!QFileInfo(u"/dev/full"_s).isFile());

    const QByteArray pipe = QFile::encodeName(folder.path(u"b.png"_s));
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    QCOMPARE(ExportPng(picture(), folder.path(u"b.png"_s)), pngFileFailed);
    struct stat found {};
    QCOMPARE(lstat(pipe.constData(), &found), 0);
    QVERIFY(S_ISFIFO(found.st_mode));
}

void TestExportPng::aLinkIsNotFollowed() {
    const Folder folder;
    writeFile(folder.path(u"precious"_s), "precious");
    QVERIFY(QFile::link(u"precious"_s, folder.path(u"a.png"_s)));
    QVERIFY(QFile::link(u"missing"_s, folder.path(u"b.png"_s)));
    for (const QString& name : {u"a.png"_s, u"b.png"_s}) {
        QCOMPARE(ExportPng(picture(), folder.path(name)), pngFileFailed);
        QVERIFY(QFileInfo(folder.path(name)).isSymLink());
    }
    QCOMPARE(readFile(folder.path(u"precious"_s)), QByteArray("precious"));
    QVERIFY(!QFile::exists(folder.path(u"missing"_s)));
}

void TestExportPng::fullAtTheHeader() {
    const Folder folder;
    const QString path = folder.path(u"a.png"_s);
    std::uint8_t code = 0;
    {
        const FullDisk full(10);
        code = ExportPng(picture(), path);
    }
    QCOMPARE(code, pngHeaderFailed);
    QCOMPARE(folder.files(), QStringList());
}

void TestExportPng::fullLater() {
    const Folder folder;
    const QString path = folder.path(u"a.png"_s);
    writeFile(path, "old");
    QVERIFY(QFile::exists(path));
    // In the middle of the rows, and in the last bytes, which are written when all else is done.
    QCOMPARE(ExportPng(picture(), folder.path(u"b.png"_s)), pngWritten);
    const auto whole = static_cast<rlim_t>(QFileInfo(folder.path(u"b.png"_s)).size());
    for (const rlim_t bytes : {rlim_t{100}, rlim_t{20'000}, whole - 1}) {
        std::uint8_t code = 0;
        {
            const FullDisk full(bytes);
            code = ExportPng(picture(), path);
        }
        QCOMPARE(code, pngPictureFailed);
        QCOMPARE(readFile(path), QByteArray("old"));
        QCOMPARE(folder.files(), (QStringList{u"a.png"_s, u"b.png"_s}));
    }
    // A small picture stays in the buffer to the end.
    const FullDisk full(60);
    QCOMPARE(ExportPng(picture({4, 4}), path), pngPictureFailed);
    QCOMPARE(readFile(path), QByteArray("old"));
}

void TestExportPng::texts() {
    QCOMPARE(resultText(0), u"Operazione eseguita correttamente"_s);
    QCOMPARE(resultText(1), u"Errore: memoria esaurita"_s);
    QCOMPARE(resultText(2), u"Errore: inizializzazione dell'immagine"_s);
    QCOMPARE(resultText(3), u"Errore: inizializzazione dell'header dell'immagine"_s);
    QCOMPARE(resultText(4), u"Errore: creazione del file impossibile"_s);
    QCOMPARE(resultText(5), u"Errore: creazione dell'immagine impossibile"_s);
    for (int code = 6; code < 256; ++code) {
        QCOMPARE(resultText(static_cast<std::uint8_t>(code)), QString());
    }
}

} // namespace quor::test

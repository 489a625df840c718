#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QFont>
#include <QPageSize>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfWriter>
#include <QString>
#include <QStringList>

/// Pages to print, and what is on pages.
namespace quor::test {

/// A document with one page for each text.
inline QByteArray pdfWithPages(const QStringList& texts) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(72);
    QPainter painter(&writer);
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (i > 0) {
            writer.newPage();
        }
        painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 24));
        painter.drawText(100, 100, texts.at(i));
    }
    painter.end();
    return pdf;
}

/// The text of each page; empty for what is no document.
inline QStringList textsOf(QByteArray pdf) {
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument document;
    document.load(&buffer);
    QStringList texts;
    for (int page = 0; page < document.pageCount(); ++page) {
        texts << document.getAllText(page).text().trimmed();
    }
    return texts;
}

inline QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A program of a few lines.
inline void writeScript(const QString& path, const QByteArray& lines) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write("#!/bin/sh\n" + lines);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

} // namespace quor::test

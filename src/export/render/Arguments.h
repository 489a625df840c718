#pragma once

#include <QMarginsF>
#include <QSizeF>
#include <QString>
#include <QStringList>

/// What `quor-render` is asked to do.
namespace quor::render {

/// How the program ends.
enum ExitCode : int {
    done = 0,
    pageFailed = 1,  ///< the page is missing, cannot be read, or its pages cannot be made
    wrongUse = 2,    ///< the command line says nothing that can be done
    writeFailed = 3, ///< the file cannot be written; what was there before is still there
};

struct Arguments {
    bool help = false;
    QString fault;     ///< why the command line is wrong; empty when it is right
    QString page;      ///< path of the page
    QString pdf;       ///< path of the file to write
    QSizeF paper;      ///< millimetres
    QMarginsF margins; ///< millimetres
    bool grey = false; ///< without colours
};

/// @param words the command line without the program's name
[[nodiscard]] Arguments parseArguments(const QStringList& words);

[[nodiscard]] QString usageText();

} // namespace quor::render

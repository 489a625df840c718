// Exports what a JSON file asks for, for the tests that look at the files from outside.
//
// driver CASES.json: {"today": "2026-11-21", "size": [400, 200], "font": "DejaVu Serif",
// "cases": [{"folder", "name", "birth", "calculation", "days", "curves": [4], "week": [3],
// "print", "graph", "weekly", "page", "locale"}]}. A system's file in "system" opens one with this
// person.

#include "core/Clock.h"
#include "export/ExportRun.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPalette>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quor;

namespace {

QDate day(const QJsonValue& value) {
    return QDate::fromString(value.toString(), Qt::ISODate);
}

Colour colour(const QJsonValue& value) {
    return static_cast<Colour>(value.toInteger());
}

/// @return whether all products were written
bool run(const QJsonObject& wanted, QSize size) {
    Program program;
    resetToStartUp(program);
    Biorhythm& biorhythm = program.biorhythm;
    biorhythm.name = wanted[u"name"_s].toString();
    biorhythm.birthDate = toDateValue(day(wanted[u"birth"_s]));
    biorhythm.calculationDate = toDateValue(day(wanted[u"calculation"_s]));
    biorhythm.graphDaysAdjust = static_cast<std::int16_t>(wanted[u"days"_s].toInt());
    const QJsonArray curves = wanted[u"curves"_s].toArray();
    for (qsizetype i = 0; i < curves.size(); ++i) {
        biorhythm.curveColours.at(static_cast<std::size_t>(i)) = colour(curves[i]);
    }
    const QJsonArray week = wanted[u"week"_s].toArray();
    for (qsizetype i = 0; i < week.size(); ++i) {
        biorhythm.weeklyColours.at(static_cast<std::size_t>(i)) = colour(week[i]);
    }
    program.state.systemFilePath = wanted[u"system"_s].toString();
    program.state.systemOpen = !program.state.systemFilePath.isEmpty();

    QLocale::setDefault(QLocale(wanted[u"locale"_s].toString(u"it_IT"_s)));
    const QString folder = wanted[u"folder"_s].toString();
    QDir().mkpath(folder);
    ExportRun run(
        program, {.graph = wanted[u"graph"_s].toBool(true),
                  .weekly = wanted[u"weekly"_s].toBool(true),
                  .page = wanted[u"page"_s].toBool(true),
                  .variant = wanted[u"print"_s].toBool() ? PageVariant::print : PageVariant::screen,
                  .scope = ExportScope::person,
                  .folder = folder,
                  .pictureSize = size});
    while (!run.isOver()) {
        const ExportResult result = run.next();
        if (result.failed) {
            std::fprintf(stderr, "%s\n", result.logLine.toUtf8().constData());
        }
    }
    return run.errorCount() == 0;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QFile file(argc == 2 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (!file.open(QIODevice::ReadOnly)) {
        std::fputs("usage: driver CASES.json\n", stderr);
        return 2;
    }
    const QJsonObject wanted = QJsonDocument::fromJson(file.readAll()).object();
    if (wanted.contains(u"font"_s)) { // another desktop
        QGuiApplication::setFont(QFont(wanted[u"font"_s].toString(), 20, QFont::Bold));
        QGuiApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    }
    const FixedClock clock(day(wanted[u"today"_s]));
    const QJsonArray size = wanted[u"size"_s].toArray();
    bool written = true;
    for (const QJsonValue& one : wanted[u"cases"_s].toArray()) {
        written = run(one.toObject(), {size[0].toInt(), size[1].toInt()}) && written;
    }
    return written ? 0 : 1;
}

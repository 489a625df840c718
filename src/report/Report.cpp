#include "report/Report.h"

#include "core/Biorhythm.h"
#include "core/DateEntry.h"
#include "core/ExitStatus.h"
#include "core/Printable.h"
#include "report/CalendarText.h"
#include "report/ReportCalendar.h"
#include "report/ReportCsv.h"
#include "report/ReportData.h"
#include "report/ReportJson.h"
#include "report/ReportStream.h"
#include "report/ReportText.h"
#include "report/TextCharset.h"
#include "storage/NamedFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Why there is no report.
struct Fault {
    int status = exitStatus::failure;
    QString text;
};

/// The days of a table or a calendar. Asked for or not, they end with the last date of four digits.
std::optional<Fault> takeDays(const ReportRequest& request, const ReportSubject& subject,
                              std::int32_t& days) {
    const std::int32_t left = lastIsoDay() - subject.firstDay + 1;
    days = request.days.value_or(std::min(defaultReportDays, left));
    const bool counts =
        request.format == ReportFormat::csv || request.format == ReportFormat::calendar;
    if (counts && days > left) {
        return Fault{
            .status = exitStatus::wrongUse,
            .text = u"i giorni vanno oltre l'anno 9999: da questa data al massimo %1"_s.arg(left)};
    }
    return std::nullopt;
}

std::optional<Fault> takeSubject(const ReportRequest& request, ReportSubject& subject) {
    std::optional<DateValue> date;
    if (!request.date.isEmpty()) {
        date = acceptCalculationDate(request.date);
        if (!date) {
            return Fault{.status = exitStatus::wrongUse,
                         .text = u"la data non è valida: "_s + request.date};
        }
    }
    Program program;
    if (const auto wrong = openNamedFile(request.file, program)) {
        return Fault{.text = *wrong};
    }
    if (date) {
        program.biorhythm.calculationDate = *date;
    } else if (program.biorhythm.calculationDate == 0) {
        // Nothing in it says so but the number that stands for no date.
        return Fault{.text = u"il file non ha una data di calcolo, indicarla con --date: "_s +
                             request.file};
    }
    subject = reportSubject(program);
    return std::nullopt;
}

/// @return whether all of it went out
bool write(const ReportRequest& request, const ReportSubject& subject, std::int32_t days,
           QIODevice& device) {
    ReportStream stream(device);
    switch (request.format) {
    case ReportFormat::text:
        writeText(subject, request.outputFile.isEmpty() ? terminalCharset() : TextCharset::utf8,
                  stream);
        break;
    case ReportFormat::json:
        writeJson(subject, stream);
        break;
    case ReportFormat::csv:
        writeCsv(subject, days, stream);
        break;
    case ReportFormat::calendar:
        if (QString fault; const CalendarText* text = calendarText(fault)) {
            writeCalendar(subject, days, *text, stream);
        }
        break;
    }
    return stream.flush();
}

Fault notWritten(const QString& where, const QString& reason) {
    return {.text = u"il rapporto non si può scrivere %1: %2"_s.arg(where, reason)};
}

/// Into the file, or onto whatever the path names.
std::optional<Fault> writeTo(const ReportRequest& request, const ReportSubject& subject,
                             std::int32_t days) {
    const QString& path = request.outputFile;
    const QFileInfo target(path);
    if (target.exists() && !target.isFile() && !target.isDir()) {
        QFile device(path); // which nothing may take the place of
        if (device.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
            write(request, subject, days, device)) {
            return std::nullopt;
        }
        return notWritten(u"in "_s + path, device.errorString());
    }
    // After that: of a pipe that only a process's own link leads to, comparing asks for a path that
    // is none, and the pipe counts as missing from then on.
    if (target.exists() && QFileInfo(request.file) == target) {
        return Fault{.status = exitStatus::wrongUse,
                     .text = u"il rapporto andrebbe sul file da leggere: "_s + path};
    }
    QSaveFile file(path);
    // Flushing is asked for by name: a commit does not notice a disk that is full.
    if (file.open(QIODevice::WriteOnly) && write(request, subject, days, file) && file.flush() &&
        file.commit()) {
        return std::nullopt;
    }
    return notWritten(u"in "_s + path, file.errorString());
}

std::optional<Fault> report(const ReportRequest& request, QIODevice& standardOutput) {
    ReportSubject subject;
    if (auto fault = takeSubject(request, subject)) {
        return fault;
    }
    std::int32_t days = 0;
    if (auto fault = takeDays(request, subject, days)) {
        return fault;
    }
    // Before anything is written.
    if (QString fault; request.format == ReportFormat::calendar && calendarText(fault) == nullptr) {
        return Fault{.text = fault};
    }
    if (!request.outputFile.isEmpty()) {
        return writeTo(request, subject, days);
    }
    if (!write(request, subject, days, standardOutput)) {
        return notWritten(u"sullo standard output"_s, standardOutput.errorString());
    }
    return std::nullopt;
}

} // namespace

int writeReport(const ReportRequest& request, QIODevice& standardOutput, QTextStream& errors) {
    if (const auto fault = report(request, standardOutput)) {
        // A path may hold what a terminal obeys, too.
        errors << "quor: " << printable(fault->text) << '\n';
        errors.flush();
        return fault->status;
    }
    return exitStatus::success;
}

} // namespace quor

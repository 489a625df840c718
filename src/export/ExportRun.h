#pragma once

#include "core/Biorhythm.h"
#include "export/ExportNames.h"
#include "export/ExportPng.h"

#include <QSize>
#include <QString>

#include <cstdint>
#include <vector>

namespace quor {

/// What a run exports, and where to.
struct ExportRequest {
    bool graph = false;  ///< "grafico.png"
    bool weekly = false; ///< "StatoSettimana0.png" to "StatoSettimana3.png"
    bool page = false;   ///< "Riepilogo.html", with the sections of what is chosen above
    PageVariant variant = PageVariant::screen;
    ExportScope scope = ExportScope::person;
    QString folder;
    QSize pictureSize; ///< pixels, of the graph; the weekly pictures share it
};

/// One product after it was attempted.
struct ExportResult {
    QString path;
    QString logLine; ///< "Grafico di Anna --> Operazione eseguita correttamente"
    QString result;  ///< the end of the line: what became of the product
    bool failed = false;
};

/// A run of exports, one product a step, so that a window can live between two of them.
///
///     while (!run.isOver()) {
///         show(run.caption());
///         log(run.next().logLine);
///     }
///
/// The persons and the names of their files are those of the moment at which the run is made.
/// Before the first product of each, the person becomes the record's: name, birth date and
/// `daysAtGraphStart`. A product that cannot be written counts as an error, and the run goes on.
class ExportRun {
  public:
    /// @param program outlives the run; its calculation date and options count
    ExportRun(Program& program, ExportRequest request);

    /// Products of the whole run.
    [[nodiscard]] int steps() const { return static_cast<int>(m_persons.size() * m_kinds.size()); }
    [[nodiscard]] int done() const { return m_done; }
    [[nodiscard]] bool isOver() const { return m_done == steps(); }

    /// What the next step does: "Esportazione grafico in corso..."; empty after the last one.
    [[nodiscard]] QString caption() const;

    /// Makes the next product. There must be one.
    ExportResult next();

    [[nodiscard]] int errorCount() const { return m_errors; }

    /// "2 errori rilevati!"; empty when there was none.
    [[nodiscard]] QString errorText() const;

    /// Path of the last person's summary page; "NULL" when there were errors or nobody to export.
    [[nodiscard]] QString summaryPath() const;

  private:
    enum class Kind : std::uint8_t { graph, mean, physical, emotional, intellectual, page };

    void makeCurrent(std::size_t index);
    [[nodiscard]] ExportResult exportGraph() const;
    [[nodiscard]] ExportResult exportWeek(WeekRow row) const;
    [[nodiscard]] ExportResult exportPage() const;

    Program& m_program;
    ExportRequest m_request;
    std::vector<SystemMember> m_persons;
    std::vector<QString> m_prefixes; ///< of each person's files
    std::vector<Kind> m_kinds;       ///< of one person's products, in their order
    int m_done = 0;
    int m_errors = 0;
    QString m_prefix;     ///< of the current person's files
    QString m_pathPrefix; ///< the same in its folder
};

} // namespace quor

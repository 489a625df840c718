#pragma once

#include "storage/RecoveryStore.h"

#include <QObject>

namespace quor {

/// Keeps work that no file holds over an end of the program that asks nothing: every two seconds it
/// puts what is open and modified aside, and takes it away again once it is saved or given up. At
/// the next start it is offered.
class Recovery : public QObject {
    Q_OBJECT

  public:
    /// @param folder where the work waits
    Recovery(Program& program, const QString& folder, QObject* parent);

    enum class Taken { nothing, biorhythm, system };

    /// Asks about the work of ended runs, the latest first, until one is taken. What is taken is in
    /// the program's data, as it was and modified; the caller shows it. Nothing may be open.
    [[nodiscard]] Taken offer(QWidget* parent);

    /// The program ends without a question: puts aside what is open now, and changes nothing any
    /// more.
    void keep();

    /// The program was quit, the user has answered everything: there is nothing to keep.
    void forget();

    /// What is done every two seconds.
    void update();

  private:
    Program& m_program;
    RecoveryStore m_store;
    Program m_seen; ///< the data as they were put aside, or without changes
    bool m_ended = false;
};

} // namespace quor

#pragma once

#include "toolkit/Dialogs.h"

#include <QStringList>

#include <deque>
#include <functional>

namespace quor::test {

/// A script behind the door of the boxes: which box is due, with which title and text, and what is
/// answered. A box that is not due, or other than expected, fails the test, and so does one that
/// never came (asked by `finished`, or at the latest when the script goes).
class ScriptedDialogs : public DialogHost {
  public:
    ScriptedDialogs();
    ~ScriptedDialogs() override;
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;
    ScriptedDialogs(ScriptedDialogs&&) = delete;
    ScriptedDialogs& operator=(ScriptedDialogs&&) = delete;

    /// A box with an OK button.
    void expectBox(const QString& title, const QString& text);
    void expectQuestion(const QString& title, const QString& text, Answer answer);
    /// A question before something is lost.
    void expectLoss(const QString& title, const QString& text, Answer answer);
    /// A question with a button to cancel.
    void expectOpenQuestion(const QString& title, const QString& text, Answer answer);
    /// @param button the one that is pressed
    void expectChoice(const QString& title, const QString& text, const QStringList& buttons,
                      const QString& button);
    void expectInput(const QString& title, const QString& prompt, const QString& answer);
    /// @param path empty for a cancelled dialog
    void expectFile(FileMode mode, const QString& title, const QString& filter,
                    const QString& folder, const QString& path);
    void expectColour(const QString& title, const QColor& initial,
                      const std::optional<QColor>& answer);
    /// @param answer nothing for a cancelled dialog
    void expectPrint(const QString& title, const QString& document, int pageCount,
                     const std::optional<PrintChoice>& answer);

    /// Every expected box came. Says what is missing if not.
    [[nodiscard]] bool finished();

    Answer message(QWidget* parent, const MessageBox& box) override;
    qsizetype choice(QWidget* parent, const ChoiceBox& box) override;
    QString input(QWidget* parent, const QString& prompt, const QString& title) override;
    QString file(QWidget* parent, const FileRequest& request) override;
    std::optional<QColor> colour(QWidget* parent, const QColor& initial,
                                 const QString& title) override;
    std::optional<PrintChoice> print(QWidget* parent, const PrintRequest& request) override;

  private:
    struct Step {
        QString box; ///< everything that is shown, in one text
        Answer answer = Answer::ok;
        QString text; ///< what is typed or chosen
        std::optional<QColor> colour;
        std::optional<PrintChoice> print{};
    };

    Step take(const QString& box);

    std::deque<Step> m_steps;
    ScopedDialogHost m_scope;
};

} // namespace quor::test

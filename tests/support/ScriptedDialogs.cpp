#include "support/ScriptedDialogs.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QString describe(const QString& kind, const QStringList& parts) {
    return kind + u": "_s + parts.join(u" | "_s);
}

QString describeMessage(BoxKind kind, const QString& title, const QString& text) {
    const QString kinds = kind == BoxKind::question       ? u"question"_s
                          : kind == BoxKind::loss         ? u"question before a loss"_s
                          : kind == BoxKind::openQuestion ? u"question that may be left open"_s
                                                          : u"box"_s;
    return describe(kinds, {title, text});
}

QString describeFile(FileMode mode, const QString& title, const QString& filter,
                     const QString& folder) {
    return describe(mode == FileMode::open ? u"open"_s : u"save"_s, {title, filter, folder});
}

QString describePrint(const QString& title, const QString& document, int pageCount) {
    return describe(u"print"_s, {title, document, QString::number(pageCount)});
}

} // namespace

ScriptedDialogs::ScriptedDialogs()
    : m_scope(*this) {}

ScriptedDialogs::~ScriptedDialogs() {
    if (!QTest::currentTestFailed()) {
        [[maybe_unused]] const bool complete = finished();
    }
}

void ScriptedDialogs::expectBox(const QString& title, const QString& text) {
    m_steps.push_back({.box = describeMessage(BoxKind::information, title, text),
                       .answer = Answer::ok,
                       .text = {},
                       .colour = {}});
}

void ScriptedDialogs::expectQuestion(const QString& title, const QString& text, Answer answer) {
    m_steps.push_back({.box = describeMessage(BoxKind::question, title, text),
                       .answer = answer,
                       .text = {},
                       .colour = {}});
}

void ScriptedDialogs::expectLoss(const QString& title, const QString& text, Answer answer) {
    m_steps.push_back({.box = describeMessage(BoxKind::loss, title, text),
                       .answer = answer,
                       .text = {},
                       .colour = {}});
}

void ScriptedDialogs::expectOpenQuestion(const QString& title, const QString& text, Answer answer) {
    m_steps.push_back({.box = describeMessage(BoxKind::openQuestion, title, text),
                       .answer = answer,
                       .text = {},
                       .colour = {}});
}

void ScriptedDialogs::expectChoice(const QString& title, const QString& text,
                                   const QStringList& buttons, const QString& button) {
    m_steps.push_back({.box = describe(u"choice"_s, QStringList{title, text} + buttons),
                       .answer = Answer::ok,
                       .text = button,
                       .colour = {}});
}

void ScriptedDialogs::expectInput(const QString& title, const QString& prompt,
                                  const QString& answer) {
    m_steps.push_back({.box = describe(u"input"_s, {title, prompt}),
                       .answer = Answer::ok,
                       .text = answer,
                       .colour = {}});
}

void ScriptedDialogs::expectFile(FileMode mode, const QString& title, const QString& filter,
                                 const QString& folder, const QString& path) {
    m_steps.push_back({.box = describeFile(mode, title, filter, folder),
                       .answer = Answer::ok,
                       .text = path,
                       .colour = {}});
}

void ScriptedDialogs::expectColour(const QString& title, const QColor& initial,
                                   const std::optional<QColor>& answer) {
    m_steps.push_back({.box = describe(u"colour"_s, {title, initial.name()}),
                       .answer = Answer::ok,
                       .text = {},
                       .colour = answer});
}

void ScriptedDialogs::expectPrint(const QString& title, const QString& document, int pageCount,
                                  const std::optional<PrintChoice>& answer) {
    m_steps.push_back({.box = describePrint(title, document, pageCount),
                       .answer = Answer::ok,
                       .text = {},
                       .colour = {},
                       .print = answer});
}

bool ScriptedDialogs::finished() {
    for (const Step& step : m_steps) {
        QTest::qFail(qPrintable(u"never came: "_s + step.box), __FILE__, __LINE__);
    }
    return std::exchange(m_steps, {}).empty();
}

ScriptedDialogs::Step ScriptedDialogs::take(const QString& box) {
    if (m_steps.empty()) {
        QTest::qFail(qPrintable(u"unexpected: "_s + box), __FILE__, __LINE__);
        return {};
    }
    Step step = std::move(m_steps.front());
    m_steps.pop_front();
    if (step.box != box) {
        QTest::qFail(qPrintable(u"expected <%1> but saw <%2>"_s.arg(step.box, box)), __FILE__,
                     __LINE__);
    }
    return step;
}

Answer ScriptedDialogs::message(QWidget* /*parent*/, const MessageBox& box) {
    return take(describeMessage(box.kind, box.title, box.text)).answer;
}

qsizetype ScriptedDialogs::choice(QWidget* /*parent*/, const ChoiceBox& box) {
    const QString button =
        take(describe(u"choice"_s, QStringList{box.title, box.text} + box.buttons)).text;
    const qsizetype position = box.buttons.indexOf(button);
    return position < 0 ? box.buttons.size() - 1 : position; // no such button: it was closed
}

QString ScriptedDialogs::input(QWidget* /*parent*/, const QString& prompt, const QString& title) {
    return take(describe(u"input"_s, {title, prompt})).text;
}

QString ScriptedDialogs::file(QWidget* /*parent*/, const FileRequest& request) {
    return take(describeFile(request.mode, request.title, request.filter, request.folder)).text;
}

std::optional<QColor> ScriptedDialogs::colour(QWidget* /*parent*/, const QColor& initial,
                                              const QString& title) {
    return take(describe(u"colour"_s, {title, initial.name()})).colour;
}

std::optional<PrintChoice> ScriptedDialogs::print(QWidget* /*parent*/,
                                                  const PrintRequest& request) {
    return take(describePrint(request.title, request.document, request.pageCount)).print;
}

} // namespace quor::test

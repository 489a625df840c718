#include "support/RecordingFrame.h"

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QString name(Command command) {
    return QString::fromLatin1(commandInfo(command).name);
}

QString onOff(bool enabled) {
    return enabled ? u"on"_s : u"off"_s;
}

QString names(std::span<const Command> commands) {
    QStringList texts;
    for (const Command command : commands) {
        texts << name(command);
    }
    return texts.join(u' ');
}

} // namespace

void RecordingFrame::run(Command command) {
    calls << u"run "_s + name(command);
}

void RecordingFrame::setCommandEnabled(Command command, bool enabled) {
    calls << u"command %1 %2"_s.arg(name(command), onOff(enabled));
}

void RecordingFrame::setToolEnabled(int position, bool enabled) {
    calls << u"tool %1 %2"_s.arg(QString::number(position), onOff(enabled));
}

void RecordingFrame::setMenuEnabled(Menu menu, bool enabled) {
    const MenuInfo& info = menuTable()[static_cast<std::size_t>(menu)];
    calls << u"menu %1 %2"_s.arg(QString::fromLatin1(info.name), onOff(enabled));
}

void RecordingFrame::setToolbarEnabled(bool enabled) {
    calls << u"toolbar "_s + onOff(enabled);
}

void RecordingFrame::setStatusPanel(StatusPanel panel, const QString& text) {
    calls << u"panel %1 %2"_s.arg(QString::number(static_cast<int>(panel)), text);
}

void RecordingFrame::applyBiorhythm() {
    calls << u"apply"_s;
}

void RecordingFrame::closeBiorhythm() {
    calls << u"close biorhythm"_s;
}

void RecordingFrame::showBiorhythmEntry() {
    calls << u"enter biorhythm"_s;
}

void RecordingFrame::showExport(const QString& caption) {
    calls << u"export "_s + caption;
}

void RecordingFrame::showPrint(PrintMode mode) {
    calls << (mode == PrintMode::print ? u"print"_s : u"preview"_s);
}

void RecordingFrame::showChild(ChildWindow* child) {
    calls << u"show "_s + child->windowTitle();
    shown.push_back(child);
}

void RecordingFrame::startTour(std::uint8_t number) {
    calls << u"tour %1"_s.arg(number);
}

void RecordingFrame::lockCommands(const TourLock& lock) {
    calls << u"lock [%1] [%2]%3"_s.arg(names(lock.allowed), names(lock.highlighted),
                                       lock.insertMembers ? u" members"_s : QString());
}

void RecordingFrame::unlockCommands() {
    calls << u"unlock"_s;
}

bool RecordingFrame::openForTour(Command command) {
    calls << u"open "_s + name(command);
    return opensForTour;
}

void RecordingFrame::showDayPopup(const DayPopup& popup, QPoint /*globalPosition*/) {
    calls << u"popup "_s + popup.day;
    popups.push_back(popup);
}

} // namespace quor::test

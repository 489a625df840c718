#include "looks/Desktop.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace quor::test {

namespace {

/// Colours such as desktops have: every text role stands out well from its ground.
QPalette lightPalette() {
    QPalette palette(QColor(0xefeff0));
    palette.setColor(QPalette::Base, QColor(0xffffff));
    palette.setColor(QPalette::Highlight, QColor(0x1d5fa8));
    palette.setColor(QPalette::HighlightedText, QColor(0xffffff));
    palette.setColor(QPalette::Link, QColor(0x1d5fa8));
    palette.setColor(QPalette::LinkVisited, QColor(0x7a3d9c));
    return palette;
}

QPalette darkPalette() {
    const QColor text(0xf0f0f0);
    const QColor ground(0x2a2e32);
    QPalette palette(QColor(0x31363b), ground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::HighlightedText}) {
        palette.setColor(role, text);
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(0x7c8084));
    }
    palette.setColor(QPalette::Base, QColor(0x1b1e20));
    palette.setColor(QPalette::AlternateBase, QColor(0x232629));
    palette.setColor(QPalette::ToolTipBase, QColor(0x31363b));
    palette.setColor(QPalette::PlaceholderText, QColor(0xa1a9b1));
    palette.setColor(QPalette::Highlight, QColor(0x2a5f8f));
    palette.setColor(QPalette::Link, QColor(0x4aa8ff));
    palette.setColor(QPalette::LinkVisited, QColor(0xc39bd3));
    return palette;
}

} // namespace

void setDesktop(const Desktop& desktop) {
    QApplication::setPalette(desktop.dark ? darkPalette() : lightPalette());
    QFont font = QApplication::font();
    font.setPointSize(desktop.points);
    QApplication::setFont(font);
}

} // namespace quor::test

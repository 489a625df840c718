#include "guidance/FAbout.h"

#include "toolkit/ImageList.h"
#include "toolkit/ShowHelp.h"

#include <QFont>
#include <QFontInfo>
#include <QIcon>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QSize>
#include <QString>

#include <memory>

#include "ui_FAbout.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QSize aboutPictureSize(112, 112);
/// The program's name against the text below it.
constexpr qreal nameScale = 2.2;

} // namespace

FAbout::FAbout(const QString& version, QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::FAbout>()) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    m_ui->Image1->setPixmap(emblem().pixmap(aboutPictureSize, devicePixelRatioF()));
    QFont nameFont = font();
    nameFont.setPointSizeF(QFontInfo(nameFont).pointSizeF() * nameScale);
    nameFont.setBold(true);
    m_ui->LabelName->setFont(nameFont);
    m_ui->LabelVersion->setText(u"Versione "_s + version);
    connect(m_ui->Command1, &QPushButton::clicked, this, &FAbout::accept);
    connect(m_ui->Command2, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"contatti.html"_s)); });
}

FAbout::~FAbout() = default;

} // namespace quor

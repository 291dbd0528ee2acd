// SPDX-License-Identifier: MIT
#include "kit/AlertDialog.h"

#include "kit/Theme.h"

#include <QtGui/QGuiApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace kit {

namespace {

constexpr int kTextWidth = 360;

} // namespace

AlertDialog::AlertDialog(const QString &message, const QString &information, QWidget *parent)
    : QDialog(parent), m_column(new QVBoxLayout(this))
{
    setWindowTitle(QGuiApplication::applicationDisplayName());
    setAccessibleName(message);
    setAccessibleDescription(information);
    m_column->setContentsMargins(kSpacingHuge, kSpacingHuge, kSpacingHuge, kSpacingLarge);
    m_column->setSpacing(kSpacing);
    m_column->setSizeConstraint(QLayout::SetFixedSize);
    if (!message.isEmpty())
        addText(message)->setFont(textFont(font(), TextSize::Body, QFont::DemiBold));
    if (!information.isEmpty())
        addText(information);
}

AlertDialog::~AlertDialog()
{
    if (m_accessory == nullptr)
        return;
    m_accessory->hide();
    m_accessory->setParent(nullptr);
}

QLabel *AlertDialog::addText(const QString &text)
{
    auto *const label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setMinimumWidth(kTextWidth);
    label->setMaximumWidth(kTextWidth);
    m_column->addWidget(label);
    return label;
}

void AlertDialog::addAccessory(QWidget *view)
{
    m_accessory = view;
    m_column->addWidget(view);
    view->show();
}

void AlertDialog::addButtons(const QStringList &titles, int cancel)
{
    m_cancel = cancel;
    auto *const box = new QDialogButtonBox(this);
    for (int index = 0; index < titles.size(); ++index) {
        const bool isFirst = index == 0;
        const auto role = isFirst ? QDialogButtonBox::AcceptRole
            : index == cancel     ? QDialogButtonBox::RejectRole
                                  : QDialogButtonBox::ActionRole;
        auto *const button = new QPushButton(box);
        // As it is: an ampersand marks no key.
        button->setText(QString(titles.at(index)).replace(QLatin1Char('&'), QLatin1String("&&")));
        // Return belongs to the first button, wherever the focus is.
        button->setAutoDefault(false);
        button->setDefault(isFirst);
        connect(button, &QPushButton::clicked, this, [this, index] { done(index); });
        box->addButton(button, role);
    }
    m_column->addSpacing(kSpacingTiny);
    m_column->addWidget(box);
}

void AlertDialog::focusFirst(QWidget *widget)
{
    widget->setFocus(Qt::OtherFocusReason);
    if (auto *const edit = qobject_cast<QLineEdit *>(widget))
        edit->selectAll();
}

void AlertDialog::reject()
{
    done(m_cancel);
}

} // namespace kit

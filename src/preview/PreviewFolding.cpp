// SPDX-License-Identifier: MIT
#include "preview/PreviewFolding.h"

#include "kit/Theme.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QWidget>

namespace preview {

namespace {

// Below this width, in logical pixels, the parts do not stand beside each other.
constexpr int kWidthForColumns = 720;
constexpr int kLargeCover = 252;
constexpr int kSmallestCover = 72;
constexpr int kOuterMargin = 44;
constexpr int kAlmostAll = 1000;

QGridLayout *gridOf(QWidget *root)
{
    return qobject_cast<QGridLayout *>(root->layout());
}

} // namespace

PreviewFolding::PreviewFolding(QWidget *root)
    : QObject(root), m_root(root), m_about(root->findChild<QWidget *>(QStringLiteral("about"))),
      m_cover(root->findChild<QWidget *>(QStringLiteral("imageview"))),
      m_text(root->findChild<QWidget *>(QStringLiteral("textView"))),
      m_controls(root->findChild<QWidget *>(QStringLiteral("controls"))),
      m_close(root->findChild<QWidget *>(QStringLiteral("btnClose")))
{ }

void PreviewFolding::fit(int width)
{
    const bool fold = width < kWidthForColumns;
    if ((m_isPlaced && fold == m_isFolded) || gridOf(m_root) == nullptr)
        return;
    m_isPlaced = true;
    m_isFolded = fold;
    for (QWidget *part : {m_about.data(), m_text.data(), m_controls.data(), m_close.data()})
        gridOf(m_root)->removeWidget(part);
    if (fold)
        placeBelowEachOther();
    else
        placeBesideEachOther();
}

void PreviewFolding::placeBesideEachOther()
{
    QGridLayout *const grid = gridOf(m_root);
    grid->setContentsMargins(kOuterMargin, kit::kSpacingLarge, kit::kSpacingLarge, kit::kSpacingHuge);
    grid->addWidget(m_about, 0, 0);
    grid->addWidget(m_controls, 1, 0, Qt::AlignLeft | Qt::AlignBottom);
    grid->addWidget(m_text, 0, 1, 2, 1);
    grid->addWidget(m_close, 0, 2, Qt::AlignRight | Qt::AlignTop);
    // Twice the width of what stands beside it.
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 2);
    grid->setRowStretch(0, 1);
    grid->setRowStretch(1, 0);
    arrangeAbout(QBoxLayout::TopToBottom, kLargeCover);
    m_about->layout()->setContentsMargins(0, kOuterMargin - kit::kSpacingLarge, 0, kit::kSpacingLarge);
}

void PreviewFolding::placeBelowEachOther()
{
    QGridLayout *const grid = gridOf(m_root);
    grid->setContentsMargins(kit::kSpacingLarge, kit::kSpacing, kit::kSpacing, kit::kSpacing);
    grid->addWidget(m_about, 0, 0, 1, 2);
    grid->addWidget(m_close, 0, 2, Qt::AlignRight | Qt::AlignTop);
    grid->addWidget(m_text, 1, 0, 1, 3);
    grid->addWidget(m_controls, 2, 0, 1, 3, Qt::AlignLeft | Qt::AlignBottom);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 0);
    grid->setRowStretch(0, 0);
    grid->setRowStretch(1, 1);
    arrangeAbout(QBoxLayout::LeftToRight, kSmallestCover);
    m_about->layout()->setContentsMargins(0, 0, 0, 0);
}

// The cover takes what height there is; beside it, the names take the width.
void PreviewFolding::arrangeAbout(QBoxLayout::Direction direction, int largestCover)
{
    auto *const box = static_cast<QBoxLayout *>(m_about->layout());
    const bool isColumn = direction == QBoxLayout::TopToBottom;
    box->setDirection(direction);
    box->setStretch(0, isColumn ? kAlmostAll : 0);
    box->setStretch(1, isColumn ? 0 : 1);
    box->setStretch(2, isColumn ? 1 : 0);
    box->setAlignment(m_cover, Qt::AlignLeft);
    m_cover->setMinimumSize(kSmallestCover, kSmallestCover);
    m_cover->setMaximumSize(largestCover, largestCover);
}

} // namespace preview

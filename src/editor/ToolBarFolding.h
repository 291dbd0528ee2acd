// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

#include <vector>

class QLabel;
class QMenu;
class QToolButton;

namespace kit {
class Separator;
}

namespace editor {

/// Fits the toolbar of the line editor to its width: pictures over words, pictures alone, or one
/// button with a menu of what has no room. The stamp button always stays.
///
/// Goes by what the texts really need, in the language and font of the moment.
class ToolBarFolding final : public QObject
{
    Q_OBJECT

public:
    /// \param toolBar  the form's toolbar; becomes its owner.
    explicit ToolBarFolding(QWidget *toolBar);

    /// \param width  of the toolbar, logical pixels.
    void fit(int width);

private:
    /// From the roomiest to the narrowest.
    enum class Level { Roomy, Words, WordsWithoutKey, Pictures, PicturesWithoutKey, Menu, MenuWithoutKey };

    void find();
    void buildMenu();
    void updateMenu();
    void measure();
    [[nodiscard]] Level levelFor(int width) const;
    [[nodiscard]] QString whatWasMeasured() const;
    void apply(Level level);
    [[nodiscard]] static int minimumToolWidth(const QToolButton &tool, Level level);
    void applyToPreview(bool words);

    QWidget *m_toolBar;
    QPointer<QWidget> m_stamp;
    QPointer<QLabel> m_stampKey;
    QPointer<QToolButton> m_more;
    QPointer<QToolButton> m_preview;
    /// What is folded into the menu, in its order.
    std::vector<QPointer<QToolButton>> m_tools;
    std::vector<QPointer<kit::Separator>> m_separators;
    QMenu *m_menu = nullptr;
    /// The width that each level needs.
    std::vector<int> m_needs;
    QString m_measured;
};

} // namespace editor

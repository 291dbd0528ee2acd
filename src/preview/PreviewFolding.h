// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QBoxLayout>

class QWidget;

namespace preview {

/// Places the parts of the preview: beside each other where there is room, else one below the other, with a
/// small cover beside the title.
class PreviewFolding : public QObject
{
    Q_OBJECT

public:
    /// The parts are found in `root` by their names. `root` needs a grid layout.
    explicit PreviewFolding(QWidget *root);

    /// For a view of `width` logical pixels. Does nothing when the parts stand right already.
    void fit(int width);
    [[nodiscard]] bool isFolded() const { return m_isFolded; }

private:
    void placeBesideEachOther();
    void placeBelowEachOther();
    void arrangeAbout(QBoxLayout::Direction direction, int largestCover);

    QWidget *m_root;
    QPointer<QWidget> m_about;
    QPointer<QWidget> m_cover;
    QPointer<QWidget> m_text;
    QPointer<QWidget> m_controls;
    QPointer<QWidget> m_close;
    bool m_isFolded = false;
    bool m_isPlaced = false;
};

} // namespace preview

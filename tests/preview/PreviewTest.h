// SPDX-License-Identifier: MIT
#pragma once

#include "preview/RBPreviewViewController.h"
#include "support/QtWarnings.h"
#include "support/StandIns.h"

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

#include <memory>

/// A preview between stand-ins, in a window that has a field of its own.
class PreviewTest : public QObject
{
protected:
    inline static const QByteArray kSong
        = "[ti:The Star]\n[00:01.00]one\n[00:02.00]two\nwords without a time\n[00:03.00]three\n";

    void setUp()
    {
        support::failOnUnexpectedWarnings();
        m_container = std::make_shared<standin::Container>();
        m_item = std::make_shared<standin::Item>();
        m_preview = RBPreviewViewController::init();
        m_preview->setParentVC(m_container);
        m_window = std::make_unique<QWidget>();
        m_edit = new QLineEdit(m_window.get());
    }

    void tearDown()
    {
        m_preview.reset();
        m_window.reset();
    }

    void show(const QByteArray &text)
    {
        m_preview->view()->setParent(m_window.get());
        m_preview->view()->setGeometry(0, 40, 900, 500);
        m_preview->flushWithAudio_lrcText(m_item, text);
        m_preview->view()->show();
        m_window->resize(900, 540);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    std::shared_ptr<standin::Container> m_container;
    std::shared_ptr<standin::Item> m_item;
    std::shared_ptr<RBPreviewViewController> m_preview;
    std::unique_ptr<QWidget> m_window;
    QLineEdit *m_edit = nullptr;
};

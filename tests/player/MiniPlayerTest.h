// SPDX-License-Identifier: MIT
#pragma once

#include "player/TQLRCEditorMiniPlayerViewCtl.h"
#include "shell/contracts/TQLRCEditorConfig.h"
#include "shell/contracts/WXEAudioFileMgr.h"
#include "support/QtWarnings.h"
#include "support/StandIns.h"

#include <QtCore/QLocale>
#include <QtTest/QTest>

/// A strip between stand-ins of everything that it meets, with an item of 100 seconds at hand.
class MiniPlayerTest : public QObject
{
protected:
    void setUp()
    {
        support::failOnUnexpectedWarnings();
        gEditorConfig = std::make_shared<TQLRCEditorConfig>();
        gEditorConfig->setSupportDragAudioInto(true);
        m_player = std::make_shared<standin::Player>();
        m_item = std::make_shared<standin::Item>();
        m_item->titleText = "The Star";
        m_item->artistText = "Traditional";
        m_item->albumText = "Rhymes";
        m_item->seconds = 100;
        m_item->cover = QImage(8, 8, QImage::Format_RGB32);
        m_item->cover.fill(Qt::red);
        m_host = std::make_shared<standin::Host>();
        m_container = std::make_shared<standin::Container>();
        m_strip = TQLRCEditorMiniPlayerViewCtl::initWithPlayer(m_player);
        m_strip->setDelegate(m_host);
        m_strip->setParentVC(m_container);
    }

    void tearDown()
    {
        m_strip.reset();
        gEditorConfig.reset();
        WXEAudioFileMgr::setFactory({});
        QLocale::setDefault(QLocale::c());
    }

    void load() { QVERIFY(m_strip->view() != nullptr); }
    [[nodiscard]] QString time() const { return m_strip->lblPlayerTime()->text(); }
    [[nodiscard]] QString image() const { return m_strip->btnPlay()->icon().name(); }

    std::shared_ptr<standin::Player> m_player;
    std::shared_ptr<standin::Item> m_item;
    std::shared_ptr<standin::Host> m_host;
    std::shared_ptr<standin::Container> m_container;
    std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> m_strip;
};

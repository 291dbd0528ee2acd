// SPDX-License-Identifier: MIT
#pragma once

#include "editor/TQLRCEditorViewCtl.h"
#include "player/TQLRCEditorMiniPlayerViewCtl.h"
#include "preview/RBPreviewViewController.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "support/StandIns.h"

#include <QtWidgets/QMainWindow>

#include <memory>

/// A host with its window, its player and an item that the component shows and plays.
struct World
{
    explicit World(const QByteArray &lyric = "a\nb\n") : item(std::make_shared<standin::Item>(lyric))
    {
        item->seconds = 100;
        container = TQWLRCEditorViewCtl::initWithPlayer(player);
        container->setDelegate(host);
        host->onPlay = [this](const std::shared_ptr<WXEAudioFile> &asked) {
            if (player) {
                player->music = asked;
                player->playing = true;
            }
        };
        window->resize(900, 620);
        window->setCentralWidget(container->view());
        window->show();
        container->flushWithAudioItem(item);
    }
    ~World()
    {
        // Who is still there may ask for something on the way out.
        if (host) {
            host->onPlay = {};
        }
    }
    World(const World &) = delete;
    World &operator=(const World &) = delete;

    /// Those who may go at any time, and from `OfATest` on whom a test has besides them.
    enum Who { ItsHost, ItsPlayer, ItsItem, ItsContainer, ItsWindow, OfATest };

    void letGo(int who)
    {
        switch (who) {
        case ItsHost:
            if (host) {
                host->onPlay = {};
            }
            host.reset();
            break;
        case ItsPlayer:
            player.reset();
            break;
        case ItsItem:
            item.reset();
            break;
        case ItsContainer:
            container.reset();
            break;
        default:
            window.reset();
        }
    }

    [[nodiscard]] std::shared_ptr<TQLRCEditorViewCtl> editor() const { return container->editorViewCtl(); }
    [[nodiscard]] std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> strip() const
    {
        return container->playerViewCtl();
    }
    [[nodiscard]] std::shared_ptr<RBPreviewViewController> preview() const
    {
        return container->previewingCtl();
    }

    std::shared_ptr<standin::Player> player = std::make_shared<standin::Player>();
    std::shared_ptr<standin::Host> host = std::make_shared<standin::Host>();
    std::shared_ptr<standin::Item> item;
    std::shared_ptr<TQWLRCEditorViewCtl> container;
    std::unique_ptr<QMainWindow> window = std::make_unique<QMainWindow>();
};

// SPDX-License-Identifier: MIT
//
// How the line editor comes into being: form, outlets, table, buttons.
#include "editor/EditorActions.h"
#include "editor/LineColumns.h"
#include "editor/SourceView.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "kit/AccentButton.h"
#include "kit/NoticeView.h"
#include "kit/Theme.h"
#include "resources/Localized.h"
#include "resources/Resources.h"
#include "resources/TQLrcUtils.h"
#include "views/CellTextView.h"
#include "views/RBNoResponseTextFiled.h"
#include "views/SmallViews.h"

#include <QtGui/QDoubleValidator>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>

namespace {

// The accent has an ink of its own; on all else a picture follows the text.
QColor inkOf(const QAbstractButton &button)
{
    return qobject_cast<const AccentButton *>(&button) ? kit::Theme(&button).accentInk : QColor();
}

} // namespace

TQLRCEditorViewCtl::TQLRCEditorViewCtl()
{
    buildActions();
}

TQLRCEditorViewCtl::~TQLRCEditorViewCtl()
{
    // A menu whose item let the host close everything is still at work with it.
    m_actions->letGo();
    m_actions.release()->deleteLater();
    m_tableRightMenu.release()->deleteLater();
}

std::shared_ptr<TQLRCEditorViewCtl> TQLRCEditorViewCtl::init()
{
    // The texts of the actions are looked up now.
    resources::ensureLoaded();
    views::registerSmallViews();
    struct Constructible : TQLRCEditorViewCtl
    { };
    return std::make_shared<Constructible>();
}

std::shared_ptr<TQLRCEditorViewCtl> TQLRCEditorViewCtl::self()
{
    return std::static_pointer_cast<TQLRCEditorViewCtl>(shared_from_this());
}

QString TQLRCEditorViewCtl::nibName() const
{
    return QStringLiteral("TQLRCEditorViewCtl");
}

bool TQLRCEditorViewCtl::connectOutlets()
{
    // Not &&: every missing outlet is named in the log, not only the first.
    bool complete = outlet(m_tableView, "tableView");
    complete &= outlet(m_lblTabTime, "lblTabTime");
    complete &= outlet(m_btnInsertTitle, "btnInsertTitle");
    complete &= outlet(m_btnInsertTime, "btnInsertTime");
    complete &= outlet(m_btnInsertArtist, "btnInsertArtist");
    complete &= outlet(m_btnInsertEditBy, "btnInsertEditBy");
    complete &= outlet(m_btnDelCur, "btnDelCur");
    complete &= outlet(m_btnDelAll, "btnDelAll");
    complete &= outlet(m_btnOffset, "btnOffset");
    complete &= outlet(m_btnPreview, "btnPreview");
    complete &= outlet(m_btnRestoreAll, "btnRestoreAll");
    complete &= outlet(m_btnInsertAlbum, "btnInsertAlbum");
    complete &= outlet(m_btnSource, "btnSource");
    complete &= outlet(m_btnSearch, "btnSearch");
    return complete;
}

void TQLRCEditorViewCtl::viewDidLoad()
{
    ViewController::viewDidLoad();
    wireTable();
    wireDropTipView();
    m_tableView->registerForDraggedTypes(
        {QStringLiteral("text/uri-list"), QStringLiteral("TableLrcDragType"), QStringLiteral("text/plain")});
    refreshBtnsImages();
    wireButtons();
    wireSourceButton();
    wireSearchButton();
    wirePreviewAndHelp();
    m_actions->attachTo(view());
    refreshToolTips();
    buildOffsetView();
    updatePlayerProgress(0.0);
    // What was loaded before there was a view; the host heard of it then.
    updateTableColumns();
    m_tableView->reloadData();
}

void TQLRCEditorViewCtl::wireTable()
{
    m_tableView->setDropInPrompt(localized(QStringLiteral("Drag and drop the lyrics file here or")));
    m_tableView->setReloadDelegate(std::weak_ptr<MyTableViewDelegate>(self()));
    m_tableView->setDataSource(std::weak_ptr<kit::TableDataSource>(self()));
    m_tableView->setTextEditorFactory([weak = std::weak_ptr(self())](QWidget *parent) {
        auto *field = new views::CellTextView(parent);
        if (const auto editor = weak.lock()) {
            // In its menu: where its caret stands no other menu knows.
            field->addAction(editor->action(EditorCommand::SplitAtCaret));
        }
        return field;
    });
    m_tableView->replaceColumnsFrom(0, {editor::numberColumn()});
    m_tableView->replaceColumnsFrom(1, editor::columnsAfterNumber(0));
}

void TQLRCEditorViewCtl::wireDropTipView()
{
    DropTipView *dropTipView = m_tableView->dropTipView();
    dropTipView->setDelegate(std::weak_ptr<DropTipViewDelegate>(self()));
    QPushButton *button = dropTipView->btnFunction();
    button->setText(localized(QStringLiteral("Start with empty file")));
    button->setAccessibleName(button->text());
    QWidget::setTabOrder(m_tableView, button);
    QWidget::setTabOrder(button, m_btnInsertTime);
    connect(button, &QPushButton::clicked, this, [this, button] { self()->importClick(button); });
}

void TQLRCEditorViewCtl::wireButtons()
{
    wireButton(m_btnInsertTime, &TQLRCEditorViewCtl::insertTimeTag);
    wireButton(m_btnInsertTitle, &TQLRCEditorViewCtl::insertTitleTag);
    wireButton(m_btnInsertArtist, &TQLRCEditorViewCtl::insertArtistTag);
    wireButton(m_btnInsertAlbum, &TQLRCEditorViewCtl::insertAlbumTag);
    wireButton(m_btnInsertEditBy, &TQLRCEditorViewCtl::insertEditedByTag);
    wireButton(m_btnDelCur, &TQLRCEditorViewCtl::deleteLineTag);
    wireButton(m_btnDelAll, &TQLRCEditorViewCtl::deleteAllTags);
    wireButton(m_btnOffset, &TQLRCEditorViewCtl::offsetClick);
    wireButton(m_btnRestoreAll, &TQLRCEditorViewCtl::restoreAllClick);
}

void TQLRCEditorViewCtl::wireButton(QAbstractButton *button, Action operation)
{
    connect(button, &QAbstractButton::clicked, this, [this, button, operation] {
        // A command may let the host destroy us; not before it is done.
        const auto alive = self();
        // The command reloads the table; what is being typed in a cell must not be lost by that.
        commitEditing();
        ((*alive).*operation)(button);
    });
}

void TQLRCEditorViewCtl::buildOffsetView()
{
    m_offsetSetView = std::make_unique<QWidget>();
    auto *layout = new QHBoxLayout(m_offsetSetView.get());
    layout->setContentsMargins(0, 0, 0, 0);
    auto *field = new QLineEdit(m_offsetSetView.get());
    field->setText(QStringLiteral("0.0"));
    field->setAccessibleName(localized(QStringLiteral("Offset in seconds")));
    auto *unit = new QLabel(localized(QStringLiteral("seconds")), m_offsetSetView.get());
    unit->setBuddy(field);
    layout->addWidget(field);
    layout->addWidget(unit);
    m_lblOffsetTime = field;
}

void TQLRCEditorViewCtl::refreshBtnsImages()
{
    const std::initializer_list<std::pair<QAbstractButton *, const char *>> images = {
        {m_btnInsertTitle, "tag_title_gray"},
        {m_btnInsertTime, "tag_time_gray"},
        {m_btnInsertArtist, "tag_artist_gray"},
        {m_btnInsertEditBy, "tag_editby_grah"},
        {m_btnDelCur, "tag_deleteline_gray"},
        {m_btnDelAll, "tag_clearall_gray"},
        {m_btnOffset, "credit-offset"},
        {m_btnRestoreAll, "tag_restore_all"},
        {m_btnInsertAlbum, "tag_album_insert"},
        {m_btnPreview, "preview"},
    };
    for (const auto &[button, name] : images) {
        if (button) {
            button->setIcon(TQLrcUtils::iconNamed(QString::fromLatin1(name), inkOf(*button)));
        }
    }
}

void TQLRCEditorViewCtl::tell(const QString &notice)
{
    NoticeView::show(viewIfLoaded(), notice);
}

QMenu *TQLRCEditorViewCtl::tableRightMenu() const
{
    return m_tableRightMenu.get();
}

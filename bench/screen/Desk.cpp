// SPDX-License-Identifier: MIT
#include "screen/Desk.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>

#include <ctime>

Desk::Desk() : component(TQWLRCEditorViewCtl::initWithPlayer(player))
{
    component->setDelegate(std::weak_ptr<TQLRCEditorViewCtlDelegate>(host));
    window = component->view();
    window->resize(1040, 700);
    window->show();
    settle();
}

Desk::~Desk()
{
    window->hide();
}

void Desk::load(const QByteArray &text)
{
    item = std::make_shared<standin::Item>(text);
    player->music = item;
    player->playing = true;
    component->flushWithAudioItem(item);
    settle();
}

void settle()
{
    // A paint is asked for by an event, and may ask for a layout by another.
    for (int i = 0; i < 3; ++i) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

namespace {

double threadTime()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e9 + double(time.tv_nsec);
}

} // namespace

double taken(const std::function<void()> &work)
{
    const double begin = threadTime();
    work();
    return threadTime() - begin;
}

double quantile(std::vector<double> samples, double share)
{
    const auto at = std::min(samples.size() - 1, std::size_t(share * double(samples.size())));
    std::nth_element(samples.begin(), samples.begin() + std::ptrdiff_t(at), samples.end());
    return samples[at];
}

Paints::Paints(QWidget &widget)
{
    widget.installEventFilter(this);
    for (QWidget *child : widget.findChildren<QWidget *>())
        child->installEventFilter(this);
}

bool Paints::eventFilter(QObject *watched, QEvent *event)
{
    m_count += event->type() == QEvent::Paint ? 1 : 0;
    return QObject::eventFilter(watched, event);
}

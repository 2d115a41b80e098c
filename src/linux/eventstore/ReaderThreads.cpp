#include "ReaderThreads.h"

#include <linux/eventstore/source/StoreLog.h>

#include <QMetaObject>
#include <QObject>
#include <QThreadPool>

#include <algorithm>
#include <limits>
#include <list>
#include <utility>

namespace vantrel {

namespace {

/// At a time, apart from those that stand still.
constexpr int mostRounds = 4;

constexpr Seconds longestTurn{1.0};

// In milliseconds.
constexpr int threadLifetime = 1000; // without work
constexpr int longestFarewell = 1000;

struct Round {
    enum class State {
        waiting,
        running,
        outwaited, ///< Running, and others wait for their turn since.
        slow       ///< Running, and not counted any more.
    };

    std::function<void()> work;
    std::function<void()> done;
    State state = State::waiting;
};

} // namespace

/// What the threads use. Outlives its owner where one of them does not come back.
struct ReaderThreads::Core {
    void begin(std::list<Round>::iterator round) {
        round->state = Round::State::running;
        pool.start([this, round] {
            round->work();
            QMetaObject::invokeMethod(
                &receiver, [this, round] { end(round); }, Qt::QueuedConnection);
        });
    }

    void end(std::list<Round>::iterator round) {
        if (!owner)
            return;
        const auto done = std::move(round->done);
        rounds.erase(round);
        owner->beginMore();
        done();
    }

    [[nodiscard]] bool hasTurnLeft() const {
        return std::count_if(rounds.begin(), rounds.end(), [](const Round &round) {
                   return round.state == Round::State::running ||
                          round.state == Round::State::outwaited;
               }) < mostRounds;
    }

    [[nodiscard]] std::list<Round>::iterator firstWaiting() {
        return std::find_if(rounds.begin(), rounds.end(), [](const Round &round) {
            return round.state == Round::State::waiting;
        });
    }

    ReaderThreads *owner = nullptr; ///< Null once it has gone.
    std::list<Round> rounds;        ///< In the order of their turns.
    QObject receiver;               ///< Of the main thread; what is under way to it goes with it.
    QThreadPool pool;
};

ReaderThreads::ReaderThreads(MainQueue &queue) : m_queue(queue), m_core(std::make_unique<Core>()) {
    m_core->owner = this;
    m_core->pool.setMaxThreadCount(std::numeric_limits<int>::max());
    m_core->pool.setExpiryTimeout(threadLifetime);
}

ReaderThreads::~ReaderThreads() {
    if (m_core->pool.waitForDone(longestFarewell))
        return;
    qCWarning(eventStoreLog) << "a source of calendars does not answer and is left behind";
    m_core.release()->owner = nullptr;
}

void ReaderThreads::run(std::function<void()> work, std::function<void()> done) {
    m_core->rounds.push_back({std::move(work), std::move(done)});
    beginMore();
}

void ReaderThreads::beginMore() {
    auto next = m_core->firstWaiting();
    for (; next != m_core->rounds.end() && m_core->hasTurnLeft(); next = m_core->firstWaiting())
        m_core->begin(next);
    if (next == m_core->rounds.end()) {
        m_patience.cancel();
        m_isPatient = false;
    } else if (!m_isPatient) {
        for (Round &round : m_core->rounds) {
            if (round.state == Round::State::running)
                round.state = Round::State::outwaited;
        }
        m_isPatient = true;
        m_patience = m_queue.after(longestTurn, [this] { passOverSlow(); });
    }
}

void ReaderThreads::passOverSlow() {
    for (Round &round : m_core->rounds) {
        if (round.state == Round::State::outwaited)
            round.state = Round::State::slow;
    }
    m_isPatient = false;
    beginMore();
}

} // namespace vantrel

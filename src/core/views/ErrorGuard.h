#pragma once
// Where a run-time error from the model ends up: one critical message that
// names it, and the end of the program without writing any file.
#include <concepts>
#include <QObject>
#include <exception>
#include <functional>
#include <utility>

#include "core/RunTimeError.h"
#include "core/views/Seams.h"

namespace pw {

class ErrorGuard {
public:
    // afterReport runs once the user has answered the message; the program
    // passes one that ends the process there and then, so no code that was
    // waiting below the message can write a file afterwards.
    // ended is the program's flag (the Session's) that nothing more is to
    // be written; the guard sets it on a run-time error.
    ErrorGuard(bool& ended, Prompts& prompts, std::function<void()> afterReport = {})
        : ended_(ended), prompts_(prompts), afterReport_(std::move(afterReport))
    {
    }

    // Runs work; returns false when it raised a run-time error (reported).
    template <class Work>
    bool Run(Work&& work)
    {
        if (ended_)
            return false;
        try {
            std::forward<Work>(work)();
            return true;
        } catch (const RunTimeError& error) {
            Report(error);
        } catch (const std::bad_alloc&) {
            Report(RunTimeError(ErrorKind::InvalidCall, "out of memory"));
        }
        return false;
    }

    void Report(const RunTimeError& error);
    bool Failed() const { return failed_; }
    // The program is ending: after a run-time error, or once its exit ran.
    bool Ended() const { return ended_; }

private:
    bool& ended_;
    Prompts& prompts_;
    std::function<void()> afterReport_;
    bool failed_ = false;
};

// Runs work inside guard when there is one. A window built on its own, as a
// test builds it, has none and lets the error through to its caller.
template <class Work>
void RunGuarded(ErrorGuard* guard, Work&& work)
{
    if (guard)
        guard->Run(std::forward<Work>(work));
    else
        std::forward<Work>(work)();
}

// Connects a signal to a handler of receiver (a member function taking no
// arguments) that runs inside guard: the one way the windows wire their
// controls, instead of a wrapper lambda at every connection.
template <class Sender, class Signal, class Receiver>
QMetaObject::Connection ConnectGuarded(Sender* sender, Signal signal, Receiver* receiver, void (Receiver::*handler)(),
                                       ErrorGuard* guard)
{
    return QObject::connect(sender, signal, receiver,
                            [receiver, handler, guard] { RunGuarded(guard, [&] { (receiver->*handler)(); }); });
}
// The same for any action that takes no arguments, run in context's thread
// and dropped with it.
template <class Sender, class Signal, class Action>
    requires std::invocable<Action&>
QMetaObject::Connection ConnectGuarded(Sender* sender, Signal signal, QObject* context, Action action,
                                       ErrorGuard* guard)
{
    return QObject::connect(sender, signal, context, [action, guard] { RunGuarded(guard, action); });
}

}  // namespace pw

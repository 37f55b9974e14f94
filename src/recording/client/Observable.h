// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <boost/thread/exceptions.hpp>
#include <boost/thread/lock_types.hpp>
#include <boost/thread/recursive_mutex.hpp>

#include <algorithm>
#include <vector>

namespace gtl {

/// The listeners of one kind; not owned.
///
/// Adding and removing is allowed from any thread and from within a call. When `remove` has returned, the listener is
/// not called any more; a listener must not wait for another thread that removes one.
template <class Listener>
class Observable {
public:
    void add(Listener &listener)
    {
        const ListenerLock lock(m_mutex);
        if (std::find(m_listeners.begin(), m_listeners.end(), &listener) == m_listeners.end())
            m_listeners.push_back(&listener);
    }
    /// Throws nothing: listeners call it where they end.
    void remove(Listener &listener) noexcept
    {
        try {
            const ListenerLock lock(m_mutex);
            std::erase(m_listeners, &listener);
        } catch (const boost::thread_exception &) {
            // Only a mutex that has ended refuses the lock, and nobody is left to call the listener.
        }
    }

    /// Calls the operation on each listener in the order of their adding.
    template <class Call>
    void notify(const Call &call)
    {
        const ListenerLock lock(m_mutex);
        const std::vector<Listener *> listeners = m_listeners;
        for (Listener *listener : listeners) {
            // an earlier one may have removed it
            if (std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end())
                call(*listener);
        }
    }

private:
    using ListenerLock = boost::unique_lock<boost::recursive_mutex>;

    boost::recursive_mutex m_mutex;
    std::vector<Listener *> m_listeners;
};

} // namespace gtl

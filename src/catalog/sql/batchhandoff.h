#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <utility>
#include <vector>

namespace PickerCtl {

/**
 * Hands batches from one producing thread to one consuming thread, holding at most a few batches
 * so the producer cannot run far ahead. Taken batches are cleared and handed back to the producer
 * to refill, so their storage is reused. The producer ends with finish() or fail(); the consumer
 * can cancel(), after which put() returns false and the producer stops.
 */
template<typename Batch>
class BatchHandoff
{
public:
    explicit BatchHandoff(std::size_t maxWaiting = 8) : m_maxWaiting(maxWaiting) {}

    /// Producer: queues a full batch and returns an emptied one to refill; false once cancelled.
    bool put(Batch &batch)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_cancelled || m_waiting.size() < m_maxWaiting; });
        if (m_cancelled)
            return false;
        m_waiting.push_back(std::move(batch));
        batch = takeSpare();
        m_changed.notify_all();
        return true;
    }

    /// Producer: no more batches.
    void finish()
    {
        std::lock_guard lock(m_mutex);
        m_finished = true;
        m_changed.notify_all();
    }

    /// Producer: no more batches, and why.
    void fail(std::exception_ptr error)
    {
        std::lock_guard lock(m_mutex);
        m_error = std::move(error);
        m_finished = true;
        m_changed.notify_all();
    }

    /// Consumer: the next batch in order; false when the producer finished and all were taken.
    /// Rethrows the producer's failure after the batches queued before it.
    bool take(Batch &batch)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_finished || !m_waiting.empty(); });
        if (!m_waiting.empty()) {
            batch.clear();
            m_spare.push_back(std::move(batch));
            batch = std::move(m_waiting.front());
            m_waiting.pop_front();
            m_changed.notify_all();
            return true;
        }
        if (m_error)
            std::rethrow_exception(m_error);
        return false;
    }

    /// Consumer: stops the producer at its next put().
    void cancel()
    {
        std::lock_guard lock(m_mutex);
        m_cancelled = true;
        m_changed.notify_all();
    }

private:
    Batch takeSpare()
    {
        if (m_spare.empty())
            return {};
        Batch spare = std::move(m_spare.back());
        m_spare.pop_back();
        return spare;
    }

    const std::size_t m_maxWaiting;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Batch> m_waiting;
    std::vector<Batch> m_spare;
    std::exception_ptr m_error;
    bool m_finished = false;
    bool m_cancelled = false;
};

} // namespace PickerCtl

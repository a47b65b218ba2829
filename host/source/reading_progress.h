#pragma once

#include <cstddef>
#include <limits>

namespace korvel::inspector {

/// Ends the reading of a document that nobody wants any more. It is no std::exception, so that nobody takes
/// it for a failure.
struct ReadingCancelled {};

/// Hears how far a document is, in the thread that reads it.
class ReadingProgress {
public:
    enum class Phase { File, Elements, Values, Rows };

    /// `done` of `whole`. May throw ReadingCancelled.
    virtual void OnProgress(Phase phase, std::size_t done, std::size_t whole) = 0;

protected:
    ~ReadingProgress() = default;
};

/// One phase: tells of every `stride` that is done, so that Reach may be called as often as one likes.
class PhaseProgress {
public:
    /// `progress`: null when nobody wants to hear.
    PhaseProgress(ReadingProgress* progress, ReadingProgress::Phase phase, std::size_t whole,
                  std::size_t stride)
        : m_progress(progress), m_phase(phase), m_whole(whole), m_stride(stride),
          m_next(progress ? 0 : std::numeric_limits<std::size_t>::max()) {}

    void Reach(std::size_t done) {
        if (done < m_next)
            return;
        m_next = done + m_stride;
        m_progress->OnProgress(m_phase, done, m_whole);
    }

private:
    ReadingProgress* m_progress;
    ReadingProgress::Phase m_phase;
    std::size_t m_whole;
    std::size_t m_stride;
    std::size_t m_next;
};

} // namespace korvel::inspector

// What a scripted call answers: one answer for each of the next calls, then the usual one.
#pragma once

#include <list>
#include <utility>

namespace recording {

template<typename T>
class Answers
{
public:
    explicit Answers(T usual)
        : m_usual(std::move(usual))
    {}

    // Every call from now on that has no answer of its own.
    void usually(T answer) { m_usual = std::move(answer); }

    // One further call, behind those that have an answer of their own already.
    void next(T answer) { m_queue.push_back(std::move(answer)); }

    T take()
    {
        if (m_queue.empty())
            return m_usual;
        T answer = std::move(m_queue.front());
        m_queue.pop_front();
        return answer;
    }

private:
    T m_usual;
    std::list<T> m_queue; // takes no memory as long as it is empty
};

} // namespace recording

#pragma once

#include <cstddef>
#include <vector>

/// Numbers that are appended at the end and dropped at the front, both in constant time on average,
/// and that lie in one piece of memory, so that a scan over them is as fast as over an array. What
/// is dropped is given back in portions, so the memory stays near what the content needs.
class SlidingVector
{
public:
    int size() const { return static_cast<int>(m_store.size() - m_first); }
    const double* data() const { return m_store.data() + m_first; }
    double at(int index) const { return m_store[m_first + offset(index)]; }
    void set(int index, double value) { m_store[m_first + offset(index)] = value; }

    void append(double value) { m_store.push_back(value); }
    /// Puts a value before the one at `index`; costs what moving the later ones costs.
    void insert(int index, double value) { m_store.insert(position(index), value); }
    /// Drops all from `newSize` on.
    void truncate(int newSize) { m_store.erase(position(newSize), m_store.end()); }
    void assign(int count, double value)
    {
        m_store.assign(offset(count), value);
        m_first = 0;
    }
    void dropFront(int count)
    {
        m_first += offset(count);
        if (m_first > kMinimumPortion && m_first > m_store.size() / kPortionDivisor) {
            m_store.erase(m_store.begin(), position(0));
            m_first = 0;
        }
    }

private:
    static constexpr std::size_t kMinimumPortion = 256;
    static constexpr std::size_t kPortionDivisor = 8;

    static std::size_t offset(int index) { return static_cast<std::size_t>(index); }
    std::vector<double>::iterator position(int index)
    {
        return m_store.begin() + static_cast<std::ptrdiff_t>(m_first + offset(index));
    }

    std::vector<double> m_store;
    std::size_t m_first = 0;
};

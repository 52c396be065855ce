// One entry of an edited list, and the ordered set of entries a list editor holds.
//
// An element knows its text (what the list box shows and what orders it), whether it was added since
// the list was loaded, and how to write that change through the list's manager. The set keeps its
// elements in ascending order of their texts, compared case-sensitively, and refuses a second element
// with the same text; inserting and finding cost O(log n) whatever the order the elements arrive in.
#pragma once

#include "entry/TaviGlobal.h"

#include <QString>

#include <cstddef>
#include <iterator>
#include <memory>
#include <set>

class CListManager;

class TAVI_EXPORT CListElement {
public:
    // Unchanged since loading, added since, or removed since (kept until the removal is stored).
    enum State : quint8 { Unchanged = 0, Added = 1, Removed = 2 };

    // added > 0 makes an added element, anything else an unchanged one.
    explicit CListElement(quint8 added);
    virtual ~CListElement();
    CListElement(const CListElement&) = delete;
    CListElement& operator=(const CListElement&) = delete;

    // The display and comparison text.
    virtual const QString& text() const = 0;
    // Writes this element's change: an added element is added to the manager's selected list, a removed
    // one removed from it, an unchanged one needs nothing. Fails with 87 without a manager.
    virtual bool store(CListManager* manager);
    virtual bool equals(const CListElement& other) const;
    virtual bool less(const CListElement& other) const;
    virtual bool greater(const CListElement& other) const;

    State state() const { return m_state; }
    void setState(State state) { m_state = state; }

private:
    State m_state;
};

// The elements of one list, owned, in ascending order of their texts.
class TAVI_EXPORT CListElementSet {
    struct Less {
        using is_transparent = void;
        bool operator()(const std::unique_ptr<CListElement>& a, const std::unique_ptr<CListElement>& b) const
        {
            return a->less(*b);
        }
        bool operator()(const std::unique_ptr<CListElement>& a, const QString& b) const { return a->text() < b; }
        bool operator()(const QString& a, const std::unique_ptr<CListElement>& b) const { return a < b->text(); }
    };
    using Storage = std::set<std::unique_ptr<CListElement>, Less>;

public:
    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = CListElement*;
        using difference_type = std::ptrdiff_t;
        using pointer = CListElement* const*;
        using reference = CListElement*;

        explicit const_iterator(Storage::const_iterator it) : m_it(it) {}
        CListElement* operator*() const { return m_it->get(); }
        const_iterator& operator++()
        {
            ++m_it;
            return *this;
        }
        bool operator==(const const_iterator& other) const { return m_it == other.m_it; }
        bool operator!=(const const_iterator& other) const { return m_it != other.m_it; }

    private:
        Storage::const_iterator m_it;
    };

    // Takes the element; when one with the same text is present the element is destroyed, the last
    // error becomes 183 (already exists) and false is returned.
    bool insert(std::unique_ptr<CListElement> element);
    // The element with exactly this text, or null.
    CListElement* find(const QString& text) const;
    // Removes the element with this text and hands it over (null when there is none).
    std::unique_ptr<CListElement> take(const QString& text);
    void clear() { m_elements.clear(); }
    std::size_t size() const { return m_elements.size(); }
    bool isEmpty() const { return m_elements.empty(); }
    const_iterator begin() const { return const_iterator(m_elements.begin()); }
    const_iterator end() const { return const_iterator(m_elements.end()); }

private:
    Storage m_elements;
};

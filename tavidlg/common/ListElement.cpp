#include "common/ListElement.h"

#include "common/ListManager.h"

#include <velbrook/MailToolkit.h>

CListElement::CListElement(quint8 added) : m_state(added > 0 ? Added : Unchanged) {}

CListElement::~CListElement() = default;

bool CListElement::store(CListManager* manager)
{
    if (!manager) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    switch (m_state) {
    case Added:
        return manager->addItem(text());
    case Removed:
        return manager->removeItem(text());
    case Unchanged:
        break;
    }
    return true;
}

bool CListElement::equals(const CListElement& other) const
{
    return text() == other.text();
}

bool CListElement::less(const CListElement& other) const
{
    return text() < other.text();
}

bool CListElement::greater(const CListElement& other) const
{
    return text() > other.text();
}

bool CListElementSet::insert(std::unique_ptr<CListElement> element)
{
    if (!element) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    if (!m_elements.insert(std::move(element)).second) {
        SetLastError(VB_ERROR_ALREADY_EXISTS);
        return false;
    }
    return true;
}

CListElement* CListElementSet::find(const QString& text) const
{
    const auto it = m_elements.find(text);
    return it == m_elements.end() ? nullptr : it->get();
}

std::unique_ptr<CListElement> CListElementSet::take(const QString& text)
{
    const auto it = m_elements.find(text);
    if (it == m_elements.end())
        return nullptr;
    auto node = m_elements.extract(it);
    return std::move(node.value());
}

#include "TypeAhead.h"

namespace {

constexpr auto pauseMilliseconds = 1000;

} // namespace

void TypeAhead::setModel(ListModelBase *model)
{
    if (m_model == model)
        return;
    m_model = model;
    m_typed.clear();
    Q_EMIT modelChanged();
}

int TypeAhead::row(const QString &keyText, int row)
{
    if (!m_sinceLastKey.isValid() || m_sinceLastKey.hasExpired(pauseMilliseconds))
        m_typed.clear();
    const bool isLetter = !keyText.isEmpty() && keyText.front().isPrint();
    // No name begins with a space.
    if (!m_model || !isLetter || (m_typed.isEmpty() && keyText.front().isSpace()))
        return -1;
    m_sinceLastKey.start();
    m_typed += keyText;

    const auto next = row + 1;
    if (m_typed == keyText)
        return m_model->rowBeginningWith(m_typed, next);
    const auto found = m_model->rowBeginningWith(m_typed, row);
    const bool isOneLetter = m_typed.count(keyText) * keyText.size() == m_typed.size();
    return found < 0 && isOneLetter ? m_model->rowBeginningWith(keyText, next) : found;
}

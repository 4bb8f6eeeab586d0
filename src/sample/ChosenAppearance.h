#pragma once

#include "Appearance.h"

/// Light or dark as it is told.
class ChosenAppearance : public Appearance
{
    Q_OBJECT

public:
    bool isDark() const override { return m_isDark; }
    void setDark(bool isDark)
    {
        m_isDark = isDark;
        Q_EMIT changed();
    }

private:
    bool m_isDark = false;
};

#pragma once

/// As long as it lives, listings do not say what an entry is, as those of some file systems never do. One at a time.
class HiddenTypes
{
public:
    explicit HiddenTypes(bool areHidden = true);
    ~HiddenTypes();
};

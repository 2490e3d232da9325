#pragma once

#include "Platform/FileIcons.h"

#include <QMimeDatabase>

namespace orvelle {

/// Types from the desktop's MIME database, pictures from the icon theme that the user chose.
/// Nothing of either is read before it is asked for.
class QtFileIcons : public FileIcons {
public:
    std::optional<std::string> type(const std::string& name) const override;
    std::string icon(const std::string& name, bool isFolder) const override;
    Image picture(const std::string& icon, int side) const override;

private:
    void chooseTheme() const;

    QMimeDatabase types_;
    mutable bool isThemeChosen_ = false;
};

} // namespace orvelle

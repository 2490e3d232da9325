#pragma once

#include "Platform/Qt/BackgroundWaits.h"
#include "Platform/UrlData.h"

namespace orvelle {

/// Over the network with certificates verified; a redirection never leads from https to http.
/// Nothing is kept on the disk.
class QtUrlData : public UrlData {
public:
    static constexpr std::chrono::seconds bound{10};

    std::optional<SharedBytes> read(const std::string& url, std::size_t limit,
                                    std::stop_token stop) override;
    /// Reads under way, and those to come, give nothing. Any thread.
    void end() { waits_.end(); }

private:
    std::optional<SharedBytes> download(const std::string& url, std::size_t limit,
                                        std::stop_token stop);

    BackgroundWaits waits_;
};

} // namespace orvelle

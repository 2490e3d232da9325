#include "Platform/Linux/PulseClient.h"

#include <pulse/operation.h>
#include <pulse/subscribe.h>
#include <pulse/timeval.h>

#include <algorithm>
#include <cmath>

namespace orvelle {

namespace {

PulseClient& client(void* self) {
    return *static_cast<PulseClient*>(self);
}

/// The library goes on with an operation whose handle nobody holds.
void forget(pa_operation* operation) {
    if (operation)
        pa_operation_unref(operation);
}

float fraction(const pa_cvolume& channels) {
    const auto loudest = static_cast<float>(pa_cvolume_max(&channels));
    return std::min(loudest / static_cast<float>(PA_VOLUME_NORM), 1.0F);
}

} // namespace

void PulseClient::Unreference::operator()(pa_context* context) const {
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_set_subscribe_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
}

PulseClient::PulseClient(std::string server, std::function<void(const PulseState&)> changed)
    : server_(std::move(server)), changed_(std::move(changed)) {
    loop_.post([this] { connect(); });
}

PulseClient::~PulseClient() {
    loop_.post([this] { context_.reset(); });
}

void PulseClient::connect() {
    context_.reset(pa_context_new(&loop_.api(), "Orvelle"));
    pa_context_set_state_callback(
        context_.get(), [](pa_context*, void* self) { client(self).stateChanged(); }, this);
    if (pa_context_connect(context_.get(), server_.empty() ? nullptr : server_.c_str(),
                           PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        lost();
}

void PulseClient::stateChanged() {
    const auto state = pa_context_get_state(context_.get());
    if (state == PA_CONTEXT_FAILED || state == PA_CONTEXT_TERMINATED)
        lost();
    if (state != PA_CONTEXT_READY)
        return;
    retryDelay_ = firstRetryDelay;
    pa_context_set_subscribe_callback(
        context_.get(),
        [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
            client(self).refresh();
        },
        this);
    constexpr auto heard = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SINK |
                                                               PA_SUBSCRIPTION_MASK_SERVER);
    forget(pa_context_subscribe(context_.get(), heard, nullptr, nullptr));
    refresh();
}

void PulseClient::lost() {
    if (retry_)
        return;
    refreshing_ = false;
    outdated_ = false;
    channels_.clear();
    timeval moment;
    pa_timeval_add(pa_gettimeofday(&moment), static_cast<pa_usec_t>(retryDelay_ * PA_USEC_PER_SEC));
    retry_ = loop_.api().time_new(
        &loop_.api(), &moment,
        [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) { client(self).retry(); },
        this);
    retryDelay_ = std::min(2 * retryDelay_, longestRetryDelay);
    publish({});
}

void PulseClient::retry() {
    loop_.api().time_free(retry_);
    retry_ = nullptr;
    connect();
}

void PulseClient::refresh() {
    if (refreshing_) {
        outdated_ = true;
        return;
    }
    refreshing_ = true;
    gathered_ = {};
    gatheredChannels_.clear();
    forget(pa_context_get_server_info(
        context_.get(),
        [](pa_context*, const pa_server_info* info, void* self) { client(self).hear(info); },
        this));
}

void PulseClient::hear(const pa_server_info* info) {
    if (info && info->default_sink_name)
        gathered_.defaultSink = info->default_sink_name;
    forget(pa_context_get_sink_info_list(
        context_.get(),
        [](pa_context*, const pa_sink_info* sink, int end, void* self) {
            end ? client(self).finishRefresh() : client(self).hear(sink);
        },
        this));
}

void PulseClient::hear(const pa_sink_info* info) {
    gathered_.sinks.push_back(
        {info->name, info->description ? info->description : info->name, fraction(info->volume)});
    gatheredChannels_.emplace(info->name, info->volume);
}

void PulseClient::finishRefresh() {
    refreshing_ = false;
    channels_.swap(gatheredChannels_);
    if (!channels_.contains(gathered_.defaultSink))
        gathered_.defaultSink.clear(); // the server also names sinks that have gone
    publish(std::move(gathered_));
    if (std::exchange(outdated_, false))
        refresh();
}

void PulseClient::publish(PulseState state) {
    if (state == published_)
        return;
    published_ = std::move(state);
    changed_(published_);
}

void PulseClient::setDefaultSink(std::string name) {
    loop_.post([this, name = std::move(name)] {
        if (channels_.contains(name))
            forget(pa_context_set_default_sink(context_.get(), name.c_str(), nullptr, nullptr));
    });
}

void PulseClient::setVolume(std::string name, float volume) {
    loop_.post([this, name = std::move(name), volume] {
        const auto found = channels_.find(name);
        if (found == channels_.end())
            return;
        pa_cvolume_scale(&found->second,
                         static_cast<pa_volume_t>(std::lround(volume * PA_VOLUME_NORM)));
        forget(pa_context_set_sink_volume_by_name(context_.get(), name.c_str(), &found->second,
                                                  nullptr, nullptr));
    });
}

} // namespace orvelle

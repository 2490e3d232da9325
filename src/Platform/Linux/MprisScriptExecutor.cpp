#include "Platform/Linux/MprisScriptExecutor.h"

#include "Platform/Linux/MprisPlayer.h"

#include <QDBusPendingCallWatcher>
#include <QEventLoop>

#include <utility>

namespace orvelle {

namespace {

/// A script's command and the player's method of the same meaning.
constexpr std::pair<std::string_view, const char*> commands[] = {
    {"playpause", "PlayPause"},
    {"next track", "Next"},
    {"previous track", "Previous"},
};

const KnownPlayer* playerOf(std::string_view source) {
    for (const auto& player : knownPlayers)
        if (source.find("tell application \"" + std::string(player.scriptName) + "\"") !=
            std::string_view::npos)
            return &player;
    return nullptr;
}

ScriptResult textResult(std::string text) {
    return {.stringValue = text, .data = SharedBytes(std::move(text))};
}

ScriptError errorOf(const QDBusMessage& reply) {
    return {.message = reply.errorMessage().toStdString(), .number = std::nullopt};
}

bool isAbsent(const QDBusMessage& reply) {
    const auto name = reply.errorName();
    return name == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown") ||
           name == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
}

QString busName(const KnownPlayer& player) {
    return Mpris::namePrefix + QString::fromUtf8(player.mprisName.data(),
                                                 static_cast<qsizetype>(player.mprisName.size()));
}

QDBusMessage allProperties(const KnownPlayer& player) {
    return Mpris::call(busName(player), busPropertiesInterface, QStringLiteral("GetAll"),
                       {Mpris::playerInterface});
}

MprisPlayer described(const KnownPlayer& player, const QDBusMessage& reply) {
    MprisPlayer description(busName(player), reply.service());
    description.update(Mpris::map(reply.arguments().value(0)), 0);
    return description;
}

/// With a decimal point in every language.
std::string number(Seconds value) {
    return QByteArray::number(value, 'f', 3).toStdString();
}

} // namespace

MprisScriptExecutor::MprisScriptExecutor(BusProvider sessionBus, MprisCovers& covers)
    : bus_(std::move(sessionBus)), covers_(covers) {}

ScriptOutcome MprisScriptExecutor::execute(const std::string& source) {
    const auto* player = playerOf(source);
    if (!player)
        return ScriptNotMade{};
    for (const auto& [words, method] : commands)
        if (source.ends_with("\" to " + std::string(words)))
            return command(*player, QLatin1String(method));
    const auto says = [&](const char* words) { return source.find(words) != std::string::npos; };
    if (says("player state is not stopped"))
        return readTrack(*player, says("artwork url"));
    if (says("artwork url") || says("raw data of artwork"))
        return readArtwork(*player, says("raw data"));
    if (says("loved of current track"))
        return ScriptError{.message = "Players here have no love mark", .number = std::nullopt};
    return ScriptNotMade{};
}

ScriptOutcome MprisScriptExecutor::readTrack(const KnownPlayer& player, bool wantsArtwork) {
    const auto reply = ask(allProperties(player));
    if (isAbsent(reply))
        return textResult("NOT_RUNNING");
    if (reply.type() != QDBusMessage::ReplyMessage)
        return errorOf(reply);
    const auto description = described(player, reply);
    if (!description.isShown())
        return textResult("STOPPED");
    const auto& track = description.track;
    auto line = track.title + "||" + track.artist + "||" + track.album + "||" +
                number(track.length) + "||" + number(description.elapsed(0)) + "||" +
                (description.isPlaying() ? "true" : "false");
    if (wantsArtwork) {
        covers_.name(track);
        line += "||" + track.artUrl;
    }
    return textResult(std::move(line));
}

ScriptOutcome MprisScriptExecutor::readArtwork(const KnownPlayer& player, bool wantsData) {
    const auto reply = ask(allProperties(player));
    if (reply.type() != QDBusMessage::ReplyMessage)
        return errorOf(reply);
    const auto track = described(player, reply).track;
    if (!wantsData) {
        covers_.name(track);
        return textResult(track.artUrl);
    }
    const auto bytes = covers_.read(track, {});
    return ScriptResult{.stringValue = std::nullopt, .data = bytes.value_or(SharedBytes())};
}

ScriptOutcome MprisScriptExecutor::command(const KnownPlayer& player, const QString& method) {
    const auto reply = ask(Mpris::call(busName(player), Mpris::playerInterface, method));
    if (reply.type() != QDBusMessage::ReplyMessage)
        return errorOf(reply);
    return ScriptResult{};
}

QDBusMessage MprisScriptExecutor::ask(const QDBusMessage& question) {
    QEventLoop loop;
    const QDBusPendingCallWatcher answer(bus_().asyncCall(question));
    QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    waits_.wait(loop, answerBound);
    return answer.isFinished() ? answer.reply()
                               : question.createErrorReply(QDBusError::NoReply,
                                                           QStringLiteral("No answer in time"));
}

} // namespace orvelle

"""Weather, stocks and the look for updates against a server on the loopback: what goes over the
wire, and what the user sees of the answers."""

import base64
import json
import pathlib
import subprocess
import uuid

import pytest

import geoclue
from accessible import names, open_panel, point_at
from desktop import WIDTH, stays, wait_until
from web import Web, chart, forecast

FIELDS = ("&current=temperature_2m,apparent_temperature,relative_humidity_2m,wind_speed_10m,"
          "weather_code,is_day&temperature_unit=fahrenheit&wind_speed_unit=mph")
STOCK_AGENT = "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7)"


@pytest.fixture(autouse=True)
def accessibility_bus(desktop):
    return desktop.spawn(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


@pytest.fixture
def web(environment):
    server = Web()
    server.answers["/orvelle.json"] = {"version": "1.0.6", "build": "1", "url": "a", "notes": ""}
    for root in ("FORECAST", "GEOCODING", "CHART", "SITE"):
        environment[f"ORVELLE_{root}_ROOT"] = server.root
    yield server
    server.stop()


@pytest.fixture
def start_weather(start, environment, web):
    """Starts the program with weather, here and at the saved places."""
    def run(places=(), **settings):
        environment["DBUS_SYSTEM_BUS_ADDRESS"] = environment["DBUS_SESSION_BUS_ADDRESS"]
        saved = json.dumps([
            {"id": str(uuid.uuid4()).upper(), "name": name, "latitude": latitude,
             "longitude": longitude} for name, latitude, longitude in places])
        write_settings(environment, weatherEnabled=True,
                       weather_savedLocations={"$data": base64.b64encode(saved.encode()).decode()},
                       **settings)
        return start()
    return run


def write_settings(environment, **settings):
    """Beforehand, with their types."""
    path = pathlib.Path(environment["XDG_CONFIG_HOME"]) / "orvelle" / "defaults.json"
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(json.dumps(settings))


def wait_for_label(program, text):
    def labels():
        return names(program.desktop, "label")

    wait_until(lambda: text in labels(), f"label {text!r}",
               lambda: f"There are {labels()} in {program.geometry()}. {program.describe()}")


def said(program, line):
    return line in program.describe()


def fields_of(head):
    return dict(line.split(": ", 1) for line in head.split("\r\n")[1:] if ": " in line)


# What goes over the wire


def test_the_forecast_is_asked_for_byte_by_byte(start_weather, web, environment):
    web.answers["/v1/forecast"] = forecast(72.4)
    start_weather(weather_cachedLatitude=48.0, weather_cachedLongitude=-0.5)
    head = wait_until(lambda: web.requests("/v1/forecast"), "request")[0]
    assert head.split("\r\n")[0] == f"GET /v1/forecast?latitude=48.0&longitude=-0.5{FIELDS} HTTP/1.1"
    assert "cookie" not in head.lower()
    assert "Cache-Control" not in fields_of(head)


def test_a_quote_is_asked_for_byte_by_byte(start_stocks, web):
    web.answers["/v8/finance/chart/BRK.B"] = chart(10, 9)
    start_stocks(["BRK.B"])
    head = wait_until(lambda: web.requests("/v8/finance/chart/"), "request")[0]
    assert head.split("\r\n")[0] == "GET /v8/finance/chart/BRK.B?range=1d&interval=1d HTTP/1.1"
    assert fields_of(head)["User-Agent"] == STOCK_AGENT


def test_the_manifest_is_asked_for_afresh_at_the_start(start, web):
    program = start()
    head = wait_until(lambda: web.requests("/orvelle.json"), "request")[0]
    assert head.split("\r\n")[0] == "GET /orvelle.json HTTP/1.1"
    assert fields_of(head)["Cache-Control"] == "no-cache"
    wait_until(lambda: said(program, "App is up to date (v1.0.6)"), "line", program.describe)


def test_a_newer_manifest_is_told(start, web):
    web.answers["/orvelle.json"]["version"] = "1.1"
    program = start()
    wait_until(lambda: said(program, "Update available: v1.1"), "line", program.describe)


def test_switched_off_features_ask_nobody(start, web, environment):
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = environment["DBUS_SESSION_BUS_ADDRESS"]
    write_settings(environment, weather_cachedLatitude=48.0)
    start()
    wait_until(lambda: web.requests("/orvelle.json"), "request")
    assert stays(lambda: len(web.heads) == 1, 0.5)


# Weather


def test_the_panel_shows_the_figures_of_the_reply(start_weather, web):
    web.answers["/v1/forecast"] = forecast(72.4, code=63, feels=70.6, humidity=41, wind=8.7)
    program = start_weather(weather_cachedLatitude=59.91, weather_cachedLongitude=10.75)
    open_panel(program, "Weather")
    for text in ("72", "Rain", "71°", "41%", "9", "Feels", "Humid", "Wind", "Updated just now", "Oslo"):
        wait_for_label(program, text)


def test_a_fix_of_geoclue_gives_the_weather_and_the_city(start_weather, web, openbox):
    location = geoclue.start(openbox, 59.91, 10.75)
    web.answers["/v1/forecast?latitude=59.91&longitude=10.75&"] = forecast(51.2)
    program = start_weather()
    open_panel(program, "Weather")
    wait_for_label(program, "Oslo")
    wait_for_label(program, "51")
    wait_until(lambda: location.counts()[1:] == (0, 0, 0), "end of the client",
               lambda: str(location.counts()))


def test_without_geoclue_saved_places_work(start_weather, web):
    web.answers["/v1/forecast?latitude=-33.87&"] = forecast(80.6, code=0)
    program = start_weather([("Sydney", -33.87, 151.21)])
    wait_until(lambda: said(program, "LocationDelegate: "), "failure", program.describe)
    open_panel(program, "Weather")
    wait_for_label(program, "Current Location")
    swipe(program, web)
    wait_for_label(program, "Sydney")
    wait_for_label(program, "81")


def swipe(program, web):
    """To the next place. Gives the request that it leads to."""
    desktop = program.desktop
    desktop.move_pointer(WIDTH // 2, 140)
    before = len(web.requests("/v1/forecast"))

    def moved():
        desktop.swipe_left()  # nothing comes of it while the last one cools down
        return len(web.requests("/v1/forecast")) > before

    wait_until(moved, "request after a swipe", program.describe)
    return web.requests("/v1/forecast")[-1]


def test_swipes_leaf_through_the_places_and_around(start_weather, web):
    web.answers["/v1/forecast"] = forecast(60)
    program = start_weather([("First", 1.5, 1.5), ("Second", 2.5, 2.5)],
                            weather_cachedLatitude=48.0)
    open_panel(program, "Weather")
    wait_for_label(program, "60")
    for name, latitude in (("First", "1.5"), ("Second", "2.5")):
        assert swipe(program, web).startswith(f"GET /v1/forecast?latitude={latitude}&")
        wait_for_label(program, name)
    # Around to the own place, which has the last coordinates that were fetched until there is a fix.
    assert swipe(program, web).startswith("GET /v1/forecast?latitude=2.5&")
    assert swipe(program, web).startswith("GET /v1/forecast?latitude=1.5&")


def test_what_was_known_is_shown_when_the_network_is_gone(start_weather, web, environment):
    environment["ORVELLE_FORECAST_ROOT"] = "http://127.0.0.1:1"
    program = start_weather(weather_temperature=55.0, weather_weatherCode=3,
                            weather_locationName="Lima", weather_cachedLatitude=-12.0)
    wait_until(lambda: said(program, "WeatherManager: Fetch failed: "), "failure",
               program.describe)
    open_panel(program, "Weather")
    for text in ("Lima", "55", "Overcast"):
        wait_for_label(program, text)


def test_a_good_reply_outlives_the_program(start_weather, start, web, environment):
    web.answers["/v1/forecast"] = forecast(72.4)
    program = start_weather(weather_cachedLatitude=48.0)
    path = pathlib.Path(environment["XDG_CONFIG_HOME"]) / "orvelle" / "defaults.json"
    wait_until(lambda: '"weather_temperature"' in path.read_text(), "record on disk",
               program.describe)
    program.stop()
    environment["ORVELLE_FORECAST_ROOT"] = "http://127.0.0.1:1"
    again = start()
    open_panel(again, "Weather")
    wait_for_label(again, "72")


ENDLESS_MEGABYTES = 256


def endless(connection):
    connection.write(b"HTTP/1.1 200 OK\r\n\r\n")
    for _ in range(ENDLESS_MEGABYTES):
        connection.write(b"[" * (1 << 20))


BAD_ANSWERS = {
    "an error page": b"<html>Bad gateway</html>",
    "half a document": json.dumps(forecast(1)).encode()[:40],
    "the wrong types": json.dumps({"current": [1, 2]}).encode(),
    "deep nesting": b"[" * 100000,
    "a long document": b"[" + b"1," * 2_000_000 + b"1]",
    "a huge number": json.dumps(forecast(1)).replace("1,", "1e999,", 1).encode(),
    "not a number": json.dumps(forecast(float("nan"))).encode(),
    "endless": endless,
    "an early end": lambda connection: connection.write(b"HTTP/1.1 200 OK\r\nContent-Len"),
    "a redirect to itself": lambda connection: connection.write(
        b"HTTP/1.1 301 Moved\r\nLocation: /v1/forecast\r\nContent-Length: 0\r\n\r\n"),
}


@pytest.mark.parametrize("name", BAD_ANSWERS)
def test_a_bad_answer_is_told_and_the_old_figures_stay(start_weather, web, name):
    web.answers["/v1/forecast"] = BAD_ANSWERS[name]
    program = start_weather(weather_temperature=55.0, weather_locationName="Lima",
                            weather_cachedLatitude=-12.0)
    before = program.megabytes("VmRSS")
    wait_until(lambda: said(program, "WeatherManager: Fetch failed: "), "failure",
               program.describe)
    open_panel(program, "Weather")
    wait_for_label(program, "55")
    assert program.megabytes("VmHWM") < before + ENDLESS_MEGABYTES / 2


# Stocks


@pytest.fixture
def start_stocks(start, environment, web):
    """Starts the program with these symbols in its list, or with these bytes for a list."""
    def run(symbols=()):
        folder = pathlib.Path(environment["XDG_DATA_HOME"]) / "Orvelle"
        folder.mkdir(parents=True)
        text = symbols if isinstance(symbols, str) else json.dumps(
            [{"id": str(uuid.uuid4()).upper(), "symbol": symbol, "name": "", "addedAt": 1.5}
             for symbol in symbols])
        (folder / "stock_tickers.json").write_text(text)
        write_settings(environment, stockTickerEnabled=True)
        return start()
    return run


def test_the_panel_shows_the_quotes(start_stocks, web):
    web.answers["/v8/finance/chart/UP?"] = chart(11, 10)
    web.answers["/v8/finance/chart/DOWN?"] = chart(9.5, 10)
    program = start_stocks(["UP", "DOWN", "NONE"])
    open_panel(program, "Stocks")
    for text in ("$11.00", "+1.00 (10.00%)", "$9.50", "-0.50 (-5.00%)"):
        wait_for_label(program, text)
    wait_until(lambda: said(program, "HTTP 404 for NONE"), "line", program.describe)


def test_a_typed_symbol_is_fetched_and_kept(start_stocks, openbox, web, environment):
    other = openbox.open_window(100, 500, 300, 200)
    openbox.focus_window(other)
    web.answers["/v8/finance/chart/KO?"] = chart(62.75, 62.75)
    program = start_stocks()
    open_panel(program, "Stocks")
    wait_for_label(program, "No stocks added")
    assert openbox.focus() == other.id, "the panel leaves the keyboard where it is"
    point_at(program, "text", "Add symbol (e.g. AAPL)...")
    openbox.click()
    wait_until(lambda: openbox.focus() == program.window().id, "keyboard", program.describe)
    openbox.type(" ko")
    openbox.keys("Return")
    wait_for_label(program, "+0.00 (0.00%)")
    path = pathlib.Path(environment["XDG_DATA_HOME"]) / "Orvelle" / "stock_tickers.json"
    wait_until(lambda: "KO" in path.read_text(), "symbol in the file", program.describe)
    ticker, = json.loads(path.read_text())
    assert (ticker["symbol"], ticker["name"]) == ("KO", "")
    assert str(uuid.UUID(ticker["id"])).upper() == ticker["id"]
    openbox.move_pointer(200, 600)  # a press elsewhere gives the keyboard back
    openbox.click()
    wait_until(lambda: openbox.focus() != program.window().id, "keyboard elsewhere")


def test_a_file_of_no_use_is_told_and_kept_aside(start_stocks, openbox, environment):
    program = start_stocks("[{\"id\":")
    assert said(program, "Failed to load stock tickers: ")
    open_panel(program, "Stocks")
    wait_for_label(program, "No stocks added")
    point_at(program, "text", "Add symbol (e.g. AAPL)...")
    openbox.click()
    wait_until(lambda: openbox.focus() == program.window().id, "keyboard", program.describe)
    openbox.type("ko")
    openbox.keys("Return")
    folder = pathlib.Path(environment["XDG_DATA_HOME"]) / "Orvelle"
    aside = folder / "stock_tickers.json.corrupt.1"
    wait_until(aside.exists, "file aside", program.describe)
    assert aside.read_text() == "[{\"id\":"


def pull(program, name, distance):
    """Pulls the row of this name to the side, as far to the one of its middle as to the other."""
    desktop = program.desktop
    x, y = point_at(program, "list item", name)
    x -= distance // 2
    desktop.move_pointer(x, y)
    desktop.press(1)
    for step in range(1, 11):
        desktop.move_pointer(x + distance * step // 10, y)
    desktop.release(1)


def wait_for_rows(program, *rows):
    wait_until(lambda: names(program.desktop, "list item") == list(rows), f"rows {rows}",
               program.describe)


def test_a_pull_uncovers_the_delete_button_and_a_press_on_it_deletes(start_stocks):
    program = start_stocks(["A", "B"])
    open_panel(program, "Stocks")
    pull(program, "A", -90)
    point_at(program, "push button", "Delete")
    program.desktop.click()
    wait_for_rows(program, "B")


def test_a_long_pull_deletes(start_stocks):
    program = start_stocks(["A", "B"])
    open_panel(program, "Stocks")
    pull(program, "A", -350)
    wait_for_rows(program, "B")

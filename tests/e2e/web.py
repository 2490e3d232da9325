"""The web services of the end-to-end tests: one server on the loopback that stands for all four."""

import http.server
import json
import threading
from urllib.parse import urlsplit


def forecast(temperature, code=2, day=1, feels=70.6, humidity=41, wind=8.7):
    return {"current": {"temperature_2m": temperature, "apparent_temperature": feels,
                        "relative_humidity_2m": humidity, "wind_speed_10m": wind,
                        "weather_code": code, "is_day": day}}


def chart(price, previous_close):
    meta = {"regularMarketPrice": price, "chartPreviousClose": previous_close}
    return {"chart": {"result": [{"meta": meta}], "error": None}}


class Web:
    """`answers` maps the beginning of a request's path to what answers it: a document, bytes, or a
    function that writes to the connection. The longest beginning that fits counts."""

    def __init__(self):
        self.answers = {}
        self.heads = []  # of each request, as it came over the wire
        web = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def handle_one_request(self):
                head = b""
                while not head.endswith(b"\r\n\r\n"):
                    line = self.rfile.readline(65536)
                    if not line:
                        self.close_connection = True
                        return
                    head += line
                web.heads.append(head.decode())
                self.close_connection = True
                web.answer(head.split(b" ")[1].decode(), self.wfile)

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.server.daemon_threads = True
        self.root = f"http://127.0.0.1:{self.server.server_address[1]}"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def answer(self, target, connection):
        fitting = [path for path in self.answers if target.startswith(path)]
        answer = self.answers[max(fitting, key=len)] if fitting else None
        if callable(answer):
            answer(connection)
            return
        status = "404 Not Found" if answer is None else "200 OK"
        body = answer if isinstance(answer, bytes) else json.dumps(answer).encode()
        connection.write(f"HTTP/1.1 {status}\r\nContent-Type: application/json\r\n"
                         f"Content-Length: {len(body)}\r\nConnection: close\r\n\r\n".encode() + body)

    def requests(self, path):
        """The heads of the requests whose path begins so."""
        return [head for head in self.heads if urlsplit(head.split(" ")[1]).path.startswith(path)]

    def stop(self):
        self.server.shutdown()
        self.server.server_close()

"""The maker's site, on a port of this machine."""
import http.server
import json
import threading


class MakerSite:
    """Serves a list of two applications, one of them with an icon that is none."""

    def __init__(self):
        self.asked = []
        site = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                site.asked.append(self.path)
                body = site.document() if self.path == "/apps.json" else b"no picture"
                self.send_response(200)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *_):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.root = f"http://127.0.0.1:{self._server.server_port}"

    def __enter__(self):
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        return self

    def __exit__(self, *_):
        self._server.shutdown()
        self._server.server_close()

    def document(self):
        return json.dumps([
            {"name": "Wollgras", "tagline": "Von der Seite.", "url": f"{self.root}/apps/wollgras"},
            {"name": "Moorlicht", "tagline": "Mit Bild.", "url": "keine Adresse",
             "icon": f"{self.root}/img/products/moorlicht.png"},
        ]).encode()

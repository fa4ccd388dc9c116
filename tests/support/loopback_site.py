"""A site on a port of this machine."""
import http.server
import threading


class LoopbackSite:
    """Answers each path with the bytes that `answer` gives for it."""

    def __init__(self, answer):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                body = answer(self.path)
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

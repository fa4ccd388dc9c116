"""The maker's site, on a port of this machine."""
import json
import pathlib
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from loopback_site import LoopbackSite


class MakerSite(LoopbackSite):
    """Serves a list of two applications, one of them with an icon that is none."""

    def __init__(self):
        self.asked = []
        super().__init__(self.answer)

    def answer(self, path):
        self.asked.append(path)
        return self.document() if path == "/apps.json" else b"no picture"

    def document(self):
        return json.dumps([
            {"name": "Wollgras", "tagline": "Von der Seite.", "url": f"{self.root}/apps/wollgras"},
            {"name": "Moorlicht", "tagline": "Mit Bild.", "url": "keine Adresse",
             "icon": f"{self.root}/img/products/moorlicht.png"},
        ]).encode()

"""A small vault to show the program with."""

NOTES = {
    "Garden.md": "# Garden\n\nAda lends us her #garden tools on Saturday. Tomatoes go to the south "
                 "wall, beans along the fence.\n",
    "Shed.md": "---\ntags: [garden, repairs]\n---\n\nThe **roof** leaks above the garden "
               "tools. Ask about [tar paper](https://example.com/roof).\n",
    "Kitchen/Sauce.md": "# Sauce\n\nTwo kilos of tomatoes, one onion, basil. #recipe\n",
    "Trips/Lisbon.md": "# Lisbon\n\nTram 28 early in the morning. #travel\n",
}


def write_notes(vault):
    for name, text in NOTES.items():
        (vault / name).parent.mkdir(exist_ok=True)
        (vault / name).write_text(text)

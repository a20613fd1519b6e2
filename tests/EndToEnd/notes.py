"""What the built-in templates make of a note."""

# The wall clock of a test, and how ICU writes it in American English: before PM stands a narrow
# no-break space.
CLOCK = "2024-03-05 14:46:07"
CLOCK_IN_NAMES = "2024-03-05 144607"
CLOCK_IN_TEXT = "Mar 5, 2024, 2:46\u202fPM"


def default_note(title, content, date):
    return f"# {title}\n\n{content}\n\n---\nCreated: {date}"


def daily_note(title, content, date):
    return (f"# Daily Note - {date}\n\n## Today's Focus\n{title}\n\n## Notes\n{content}\n\n"
            "## Gratitude\n- \n\n## Tomorrow\n- ")

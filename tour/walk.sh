#!/usr/bin/env bash
# Walks the program as a person would. Run by ./run.sh --tour on a display of its own.
set -euo pipefail
# shellcheck source=tour/hands.sh
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

# go_to PAGE: clicks the tab of a page, 0 to 5
go_to() {
  local centres=(165 285 395 495 590 695)
  click "$main" "${centres[$1]}" 43
  settle
}

start_program
splash=$(wait_window 'Loading' 30) || fail "the splash did not come"
sleep 0.1
kill -STOP "$program_pid" # it stands for half a second only
picture_of "$splash" 00-splash
kill -CONT "$program_pid"
main=$(wait_window 'Quillbrook by' 60) || fail "the main window did not come"
picture 01-start

# three clicks: a category, a sub-category, a title
click "$main" 340 258 # Sales
click "$main" 500 152 # its second sub-category
click "$main" 640 137 # the first title
picture_of "$main" 02-form

# the same form on the other pages
go_to 2
picture_of "$main" 03-edit
keys ctrl+End
write "Done at the office."
picture_of "$main" 04-edited

go_to 0
click "$main" 428 73 # Favorite
go_to 3
picture_of "$main" 05-favorites
go_to 4
picture_of "$main" 06-history

# a form of one's own
go_to 5
click "$main" 577 66 # New
write "Engagement Letter"
keys Tab
write "Letters"
keys Return
write "Dear Client,"
picture_of "$main" 07-new-form
click "$main" 577 94 # Add
picture_of "$main" 08-my-forms

# a search, its results, and the hits of one of them
go_to 1
picture_of "$main" 09-search
write "deed sale land"
keys Return
picture_of "$main" 10-results
click "$main" 300 192 # the first title
settle
click "$main" 690 257 # Next Hit
click "$main" 690 257
picture_of "$main" 11-hits
go_to 0

# a pleading, its caption put on top, its verification and then a jurat chosen in the dialogs
click "$main" 340 213 # Pleadings
click "$main" 470 168 # Complaints
click "$main" 640 122 # the first title
go_to 2
keys alt+a
picture 12-add-to-form
keys Down Down Right Down Down Right Return # Caption for Pleadings, Regional Trial Court, Civil Case
keys ctrl+Home
picture_of "$main" 13-caption
click "$main" 40 120 # Add a Verification
dialog=$(wait_window 'Add to Pleading') || fail "the dialog of pleadings did not come"
keys Tab Down Down space
picture_of "$dialog" 14-add-to-pleading
keys Return
wait_no_window 'Add to Pleading' || fail "the dialog of pleadings stays"
picture_of "$main" 15-verification
click "$main" 40 180 # Add a Jurat
dialog=$(wait_window 'Add Jurat') || fail "the dialog of jurats did not come"
click "$dialog" 200 72 # the text of the second choice
picture_of "$dialog" 16-add-jurat
keys Escape
wait_no_window 'Add Jurat' || fail "the dialog of jurats stays"
click "$main" 593 64 # Undo
settle
picture_of "$main" 17-taken-back
go_to 0

# a form with tables, its paper, and its pages: printed by the program itself where no word processor is there
click "$main" 340 257 # Sales
click "$main" 480 122 # its first sub-category
click "$main" 640 122 # the first title
settle
keys alt+f
settle
keys Down Down Down Return # Page Setup
dialog=$(wait_window 'Page Setup') || fail "the page setup did not come"
picture_of "$dialog" 18-page-setup
click "$dialog" 85 110 # Custom Size
picture_of "$dialog" 19-custom-size
click "$dialog" 75 60 # Short
keys Return
wait_no_window 'Page Setup' || fail "the page setup stays"
click "$main" 58 360 # the drop-down part of Print
picture 20-print-menu
keys Escape
keys alt+f
settle
keys Down Down Down Down Down Return # Print Setup
dialog=$(wait_window 'Print Setup') || fail "the printer setup did not come"
keys p Tab s # PDF file, Short
picture_of "$dialog" 21-printer-setup
keys Return
wait_no_window 'Print Setup' || fail "the printer setup stays"
click "$main" 35 360 # Print
wait_window '^Print$' >/dev/null || fail "printing was not asked about"
keys alt+y
wait_window 'PDF File' >/dev/null || fail "no name was asked for"
write "$TOUR_FOLDER/printed.pdf"
keys Return
wait_no_window 'PDF File' || fail "the name is still asked for"
wait_file "$TOUR_FOLDER/printed.pdf" || fail "nothing was printed"
pages_of "$TOUR_FOLDER/printed.pdf" 22-printed

# the same through the word processor: its print dialog, its preview, a document for it
if [ -e "${TOUR_WRITER:-}" ] && command -v soffice >/dev/null; then
  cp "$TOUR_WRITER" "$(dirname "$TOUR_PROGRAM")/" # until now the program had no way to it
  keys ctrl+p
  dialog=$(word_window '^Print$') || fail "the print dialog did not come"
  settle
  picture 23-print-dialog
  keys Escape
  no_word_window '^Print$' || fail "the print dialog stays"
  wait_window 'Quillbrook by' >/dev/null || fail "printing does not end"
  keys alt+f Up Up Return # Print Preview
  preview=$(word_window 'from Quillbrook') || fail "the preview did not come"
  sleep 2
  picture 24-preview
  timeout 10 wmctrl -i -c "$preview" || fail "the preview was not asked to close"
  wait_window 'Quillbrook by' >/dev/null || fail "the preview does not end"
  settle
  keys ctrl+s
  dialog=$(wait_window 'Save Options') || fail "the dialog of saving did not come"
  picture_of "$dialog" 25-save
  keys Return # as a document
  wait_window 'Save Form as' >/dev/null || fail "the file dialog did not come"
  settle
  write "$TOUR_FOLDER/agreement.doc"
  keys Return
  wait_file "$TOUR_FOLDER/agreement.doc" || fail "the document was not saved"
  settle
  picture 26-saved
  keys Return
  settle
  go_to 2
  keys ctrl+End
  write "The seller recieved the price."
  settle
  click "$main" 40 258 # Check Spelling
  dialog=$(wait_window 'Spelling & Grammar$' 60) || fail "nothing was found to correct"
  picture_of "$dialog" 26-spelling
  keys Return # the change suggested
  dialog=$(wait_window '^Quillbrook PRO' 60) || fail "the check does not end"
  keys Return
  settle
  go_to 0
fi

# the colour themes on one sheet: each step of the dialog shows at once
keys alt+t Return
dialog=$(wait_window 'Color Theme') || fail "the theme dialog did not come"
timeout 10 xdotool windowmove "$dialog" 10 30 || fail "the theme dialog was not moved"
settle
mkdir -p "$TOUR_FOLDER/themes"
for number in $(seq -w 2 34) 35; do
  keys space
  sleep 0.2
  timeout 60 import -silent -window "$main" -resize 300x "$TOUR_FOLDER/themes/$number.png" || fail "no picture of a theme"
  if [ "$number" = 03 ]; then picture_of "$dialog" 27-theme-dialog; fi
done
timeout 120 montage "$TOUR_FOLDER"/themes/*.png -tile 6x -geometry +4+4 "$TOUR_FOLDER/28-themes.png" || fail "no sheet of themes"
rm -r "$TOUR_FOLDER/themes"
echo "  28-themes"
keys Escape
wait_no_window 'Color Theme' || fail "the theme dialog stays"

# the author's card and the about box
keys alt+h Up Up Return
dialog=$(wait_window 'Contact Atty') || fail "the contact card did not come"
picture_of "$dialog" 29-contact
keys Return
wait_no_window 'Contact Atty' || fail "the contact card stays"
keys alt+h Up Return
dialog=$(wait_window 'Click to pause') || fail "the about box did not come"
picture_of "$dialog" 30-about
keys Escape
wait_no_window 'Click to pause' || fail "the about box stays"

# the help: by its key, then a page found by its words
keys F1
help=$(wait_window 'Quillbrook Help') || fail "the help did not come"
picture_of "$help" 31-help
click "$help" 175 58 # its Search
click "$help" 130 90
write "long paper"
keys Return
picture_of "$help" 32-help-search
keys Escape
wait_no_window 'Quillbrook Help' || fail "the help stays"

# a large window: the page keeps a comfortable width
timeout 10 xdotool windowsize --sync "$main" "$(scaled 1280)" "$(scaled 900)" || fail "not resized"
picture_of "$main" 33-large

close_program "$main"

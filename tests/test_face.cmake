# GFX_TEST_FACE: the TrueType face that the font tests and the fuzz target open. The tests patch its
# tables and know its character maps; the fuzz target would take any face.

find_file(
  GFX_TEST_FACE
  NAMES DejaVuSans.ttf
  PATHS /usr/share/fonts /usr/local/share/fonts
  PATH_SUFFIXES truetype/dejavu dejavu TTF
  DOC "TrueType face that the font tests open")

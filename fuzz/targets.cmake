# The targets of the fuzzer, each with the libraries that it reads by. Their corpora
# lie in corpus/, a folder each. Two builds walk over this list: fuzz/ by the fuzzer's
# own compiler, tests/corpora/ by the usual one.
set(STOIKAL_FUZZ_TARGETS balancing editor formula help_reader high_scores line_reader settings text_file tips version
  work_file)
set(STOIKAL_FUZZ_balancing_DEPENDS balancing)
set(STOIKAL_FUZZ_editor_DEPENDS editor)
set(STOIKAL_FUZZ_formula_DEPENDS exercise balancing)
set(STOIKAL_FUZZ_help_reader_DEPENDS help_reader)
set(STOIKAL_FUZZ_high_scores_DEPENDS exercise)
set(STOIKAL_FUZZ_line_reader_DEPENDS equation_files)
set(STOIKAL_FUZZ_settings_DEPENDS base)
set(STOIKAL_FUZZ_text_file_DEPENDS tools)
set(STOIKAL_FUZZ_tips_DEPENDS tools)
set(STOIKAL_FUZZ_version_DEPENDS shell_logic)
set(STOIKAL_FUZZ_work_file_DEPENDS editor)

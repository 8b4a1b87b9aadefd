# Every target of ours links vaxo_warnings: one place for the warning set.
add_library(vaxo_warnings INTERFACE)
target_compile_options(vaxo_warnings INTERFACE -Wall -Wextra -Wpedantic $<$<BOOL:${VAXO_WERROR}>:-Werror>)

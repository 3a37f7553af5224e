# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# zq_embed(<target> <file> <function>): compiles the file's bytes into the target, handed out by
# `std::string_view zqcameralib::<function>()`. Generated while building, anew when the file changes.

set(ZQ_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

function(zq_embed target file function)
  get_filename_component(input ${file} ABSOLUTE)
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${function}.cpp)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DINPUT=${input} -DOUTPUT=${output} -DFUNCTION=${function}
            -P ${ZQ_EMBED_SCRIPT}
    DEPENDS ${input} ${ZQ_EMBED_SCRIPT}
    COMMENT "Embedding ${file}"
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()

# Run as a script, this file writes the source. Single characters, because compilers bound the length
# of a string literal.
function(zq_write_embedded)
  file(READ ${INPUT} bytes HEX)
  string(REGEX REPLACE "(................................)" "\\1\n    " bytes "${bytes}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
  file(WRITE ${OUTPUT} "// Generated; do not edit.
#include <string_view>

namespace zqcameralib {

std::string_view ${FUNCTION}();

std::string_view ${FUNCTION}()
{
    static constexpr char bytes[] = {
    ${bytes} '\\0' };
    return { bytes, sizeof bytes - 1 };
}

} // namespace zqcameralib
")
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  zq_write_embedded()
endif()

# Writes the manual page of tremorvault-cli from its own help texts, so that the page says what
# the program says: help2man makes the page of `--help` and `--version`; each command's
# `COMMAND --help` is added as a section. Run as
#   cmake -DCLI=<tremorvault-cli> -DHELP2MAN=<help2man> -DSTATIC=<.h2m> -DOUT=<page> -P man-page.cmake

function(roff_escape out text)
  string(REPLACE "\\" "\\e" text "${text}")
  string(REPLACE "-" "\\-" text "${text}")
  # A line starting with a dot or an apostrophe would be read as a request.
  string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" text "${text}")
  set(${out} "${text}" PARENT_SCOPE)
endfunction()

execute_process(COMMAND "${CLI}" --help OUTPUT_VARIABLE usage RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${CLI} --help failed: ${status}")
endif()
# The commands are the lines under "commands:", two blanks in: a name, then what it does.
string(REGEX MATCH "commands:\n(  [^\n]*\n)+" listed "${usage}")
string(REGEX MATCHALL "  [a-z]+ +[^\n]*" lines "${listed}")
if(NOT lines)
  message(FATAL_ERROR "no commands found in the help of ${CLI}")
endif()

set(sections "[COMMANDS]\n")
foreach(line ${lines})
  string(REGEX REPLACE "^  ([a-z]+) +(.*)$" "\\1" name "${line}")
  string(REGEX REPLACE "^  ([a-z]+) +(.*)$" "\\2" summary "${line}")
  execute_process(COMMAND "${CLI}" ${name} --help OUTPUT_VARIABLE help RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${CLI} ${name} --help failed: ${status}")
  endif()
  roff_escape(summary "${summary}")
  roff_escape(help "${help}")
  string(APPEND sections ".SS ${name}\n${summary}.\n.PP\n.nf\n${help}.fi\n")
endforeach()

set(commands "${OUT}.commands.h2m")
file(WRITE "${commands}" "${sections}")
execute_process(
  COMMAND "${HELP2MAN}" --no-info --no-discard-stderr --section=1
          "--name=batch runs of the seismic assessment of buildings"
          --include=${STATIC} --include=${commands} --output=${OUT} "${CLI}"
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "help2man failed on ${CLI}: ${status}")
endif()

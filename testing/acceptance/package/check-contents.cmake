# Checks that the files below FOLDER are exactly those that CONTENTS lists.
file(GLOB_RECURSE files RELATIVE ${FOLDER} ${FOLDER}/*)
file(STRINGS ${CONTENTS} expected)
# The targets' file is named after the build type.
list(TRANSFORM files REPLACE "VelaAgentTargets-[a-z]+" "VelaAgentTargets-release")
list(SORT files)
list(SORT expected)
if(NOT files STREQUAL expected)
  list(JOIN files "\n  " text)
  message(FATAL_ERROR "The package holds other files than ${CONTENTS}:\n  ${text}")
endif()

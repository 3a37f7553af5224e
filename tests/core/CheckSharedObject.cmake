# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Run with -P: what LIBRARY shows to others, and its version record.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${NM} -DC --defined-only --format=just-symbols ${LIBRARY}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "\n$" "" symbols "${symbols}")
string(REGEX REPLACE "@[^\n]*" "" symbols "${symbols}")
string(REPLACE "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >"
  "string" symbols "${symbols}")
string(REPLACE "\n" ";" symbols "${symbols}")
list(REMOVE_DUPLICATES symbols)
list(SORT symbols)

set(facade featurebrowser::ZQFeatureBrowser)
set(show "(int, int, std::vector<int, std::allocator<int> >, featurebrowser::TYPE_LEVEL)")
set(receiver "featurebrowser::IEventFeatureReceiver")
set(expected
  "customatof(string)"
  "featurebrowser::getTextDescription[abi:cxx11](std::shared_ptr<featurebrowser::FeatureItem> const&)"
  "featurebrowser::getType(int)"
  "featurebrowser::listOfLogarithmicControls[abi:cxx11]"
  "typeinfo for ${receiver}"
  "typeinfo name for ${receiver}"
  "${facade}::ZQFeatureBrowser(featurebrowser::ICameraDevice*, ${receiver}*)"
  "${facade}::ZQFeatureBrowser(zqcameralib::ZQCamera*, ${receiver}*)"
  "${facade}::~ZQFeatureBrowser()"
  "${facade}::ShowDialog${show}"
  "${facade}::ShowStandalone${show}"
  "${facade}::RefreshFeature(string)")
foreach(operation Show Hide CloseDialog ClearFeatureBrowser RefreshStates LoadFeatureBrowser
    ReloadFeatureBrowser GetWidget GetCameraRepository)
  list(APPEND expected "${facade}::${operation}()")
endforeach()
list(SORT expected)
set(optional "vtable for ${receiver}") # optimised builds need none

foreach(symbol IN LISTS symbols)
  if(NOT symbol IN_LIST expected AND NOT symbol IN_LIST optional)
    message(SEND_ERROR "exported and should not be: ${symbol}")
  endif()
endforeach()
foreach(symbol IN LISTS expected)
  if(NOT symbol IN_LIST symbols)
    message(SEND_ERROR "not exported: ${symbol}")
  endif()
endforeach()

file(STRINGS ${LIBRARY} record REGEX "^(PRODUCT_NAME|VERSION_|BUILD_TIMESTAMP)")
list(REMOVE_DUPLICATES record) # debug information holds it as well
string(REPLACE ";" "\n" record "${record}")
if(NOT record MATCHES "^PRODUCT_NAME ZQFeatureBrowser\nVERSION_MAJOR 1\nVERSION_MINOR 3\n\
VERSION_PATCH 0\nVERSION_BUILD 1\nBUILD_TIMESTAMP [-0-9]+T[:0-9]+Z$")
  message(SEND_ERROR "version record: '${record}'")
endif()

#pragma once

// The controls of every page that is a list of records.
#define IDC_RECORD_LIST 1021
#define IDC_ADD_RECORD 1014
#define IDC_EDIT_RECORD 1016
#define IDC_REMOVE_RECORD 1015
#define IDC_MOVE_UP 1017
#define IDC_MOVE_DOWN 1018

#pragma once

// The controls of the page with a list of items.
#define IDC_ITEM_LIST_LABEL 1020
#define IDC_ITEM_LIST 1021
#define IDC_ADD_ITEM 1014
#define IDC_EDIT_ITEM 1016
#define IDC_REMOVE_ITEM 1015
#define IDC_MOVE_UP 1017
#define IDC_MOVE_DOWN 1018

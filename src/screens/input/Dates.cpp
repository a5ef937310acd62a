// SPDX-License-Identifier: MIT


// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

/// A symmetric 2 x 2 matrix of finite numbers, such as a covariance.
struct SymmetricMatrix {
    double xx = 0;
    double xy = 0;
    double yy = 0;
};

/// An eigenvalue and its eigenvector of length 1.
struct EigenPair {
    double value = 0;
    double x = 0;
    double y = 0;
};

/// The eigenvalues and eigenvectors, that of the larger value first.
///
/// The matrix is divided by its largest element and made diagonal by QR steps with the shift of Wilkinson; a second
/// step is hardly ever needed. The values of a closed formula would differ from these in the last digits, and where all
/// samples lie on a line the whole of the smaller value is last digits: that is why it is not used.
/// Source: Golub & Van Loan, Matrix Computations, on the symmetric QR algorithm and on Givens rotations.
std::array<EigenPair, 2> eigenPairs(const SymmetricMatrix &matrix);
